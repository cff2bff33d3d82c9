// SPDX-License-Identifier: MIT
#include "AbstractPainter.h"

#include "Bounds.h"
#include "PixProps.h"

AbstractPainter::AbstractPainter()
    : bounds(new Bounds())
    , props(new PixProps()) {}

AbstractPainter::~AbstractPainter() = default;

int32_t AbstractPainter::getX() const {
    return bounds->x;
}

int32_t AbstractPainter::getY() const {
    return bounds->y;
}

int32_t AbstractPainter::getWidth() const {
    return bounds->w;
}

int32_t AbstractPainter::getHeight() const {
    return bounds->h;
}

void AbstractPainter::getBounds(Bounds* target) {
    bounds->getBounds(target);
}

void AbstractPainter::setBounds(Bounds* source) {
    bounds->setBounds(source);
}

void AbstractPainter::setPixProps(PixProps* source) {
    props->set(source, nullptr);
}
