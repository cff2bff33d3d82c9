// SPDX-License-Identifier: MIT
#include "PainterArray.h"

#include "ArrFunc.h"
#include "Bounds.h"
#include "PixProps.h"
#include "Pooled.h"

#include <algorithm>

namespace {

constexpr int32_t kDown = -1;
constexpr int32_t kUp = 1;

}  // namespace

PainterArray::PainterArray()
    : PainterArray(0) {}

PainterArray::PainterArray(int32_t slots)
    : PainterArray(newArray<Painter*>(slots)) {}

PainterArray::PainterArray(Painter** slots)
    : slots(slots)
    , props(new PixProps())
    , bounds(new Bounds()) {}

PainterArray::~PainterArray() = default;

void PainterArray::getBounds(Bounds* target) {
    bounds->getBounds(target);
}

void PainterArray::setBounds(Bounds* source) {
    bounds->setBounds(source);
}

void PainterArray::setPixProps(PixProps* source) {
    props->set(source, nullptr);
}

void PainterArray::refresh() {
    for (int32_t i = 0; i < length(slots); i++) {
        if (slots[i] != nullptr) {
            slots[i]->refresh();
        }
    }
}

bool PainterArray::outOfBounds(int32_t index) {
    return index < 0 || index >= length(slots);
}

int32_t PainterArray::clamp(int32_t index) {
    return std::clamp(index, 0, std::max(0, length(slots) - 1));
}

Painter* PainterArray::getPainter(int32_t index) {
    return outOfBounds(index) ? nullptr : slots[index];
}

Painter* PainterArray::findFrom(int32_t index, int32_t step) {
    for (int32_t i = index; !outOfBounds(i); i += step) {
        if (slots[i] != nullptr) {
            return slots[i];
        }
    }
    return nullptr;
}

Painter* PainterArray::getFirstBelow(int32_t index) {
    return findFrom(std::clamp(index, 0, length(slots)) - 1, kDown);
}

Painter* PainterArray::getFirstAbove(int32_t index) {
    return findFrom(std::clamp(index, -1, length(slots)) + 1, kUp);
}

Painter* PainterArray::getBottomPainter() {
    return findFrom(0, kUp);
}

Painter* PainterArray::getTopPainter() {
    return findFrom(length(slots) - 1, kDown);
}

void PainterArray::setPainter(int32_t index, Painter* painter) {
    if (!outOfBounds(index)) {
        slots[index] = painter;
    }
}

void PainterArray::removePainter(int32_t index) {
    setPainter(index, nullptr);
}

void PainterArray::removePainter(Painter* painter) {
    removePainter(getIndexOf(painter));
}

void PainterArray::removeAllPainters() {
    slots.reset(newArray<Painter*>(0));
}

int32_t PainterArray::getIndexOf(Painter* painter) {
    Painter** const end = slots + length(slots);
    Painter** const found = std::find(slots.get(), end, painter);
    return found == end ? -1 : static_cast<int32_t>(found - slots);
}

void PainterArray::paintOn(
    AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    paintOn(0, length(slots) - 1, dst, x, y, clip, inherited);
}

void PainterArray::paintOn(
    int32_t from, AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    paintOn(from, length(slots) - 1, dst, x, y, clip, inherited);
}

void PainterArray::paintOn(int32_t from,
                           int32_t to,
                           AppImage* dst,
                           int32_t x,
                           int32_t y,
                           Bounded* clip,
                           PixProps* inherited) {
    if (from > to || length(slots) == 0) {
        return;
    }
    const PooledPixProps combined(PixProps::alloc(props.get(), inherited));
    const int32_t last = clamp(to);
    for (int32_t i = clamp(from); i <= last; i++) {
        if (slots[i] != nullptr) {
            slots[i]->paintOn(dst, x + bounds->x, y + bounds->y, clip, combined);
        }
    }
}

PainterArray* PainterArray::getCopy() {
    auto** copies = newArray<Painter*>(length(slots));
    std::copy_n(slots.get(), length(slots), copies);
    auto* copy = new PainterArray(copies);
    copy->setBounds(bounds.get());
    copy->setPixProps(props.get());
    return copy;
}
