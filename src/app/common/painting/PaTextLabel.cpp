// SPDX-License-Identifier: MIT
#include "PaTextLabel.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "OspBase.h"
#include "PixProps.h"
#include "Pooled.h"
#include "Res.h"

using Osp::Base::String;

PaTextLabel::PaTextLabel()
    : strId(Res::Null)
    , fntId(Res::Null) {}

PaTextLabel::PaTextLabel(int32_t strId, int32_t fntId, uint32_t argb)
    : strId(strId)
    , fntId(fntId)
    , argb(argb) {
    PaTextLabel::refresh();
}

void PaTextLabel::set(int32_t strId, int32_t fntId, uint32_t argb) {
    this->strId = strId;
    this->fntId = fntId;
    this->argb = argb;
    refresh();
}

void PaTextLabel::setText(int32_t id) {
    strId = id;
    refresh();
}

void PaTextLabel::setFont(int32_t id) {
    fntId = id;
    refresh();
}

void PaTextLabel::refresh() {
    String* text = Res::getStr(strId);
    BitMapFont* font = Res::getFont(fntId);
    const bool empty = text == nullptr || font == nullptr;
    bounds->w = empty ? 0 : font->getStringWidth(text);
    bounds->h = empty ? 0 : font->getMaxHeight();
}

void PaTextLabel::paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    String* text = Res::getStr(strId);
    BitMapFont* font = Res::getFont(fntId);
    if (text == nullptr || font == nullptr) {
        return;
    }
    const PooledPixProps combined(PixProps::alloc(props.get(), inherited));
    const uint32_t colour = AppImage::applyProps(argb, combined);
    const PooledBounds area(Bounds::alloc(0, 0, dst->w, dst->h));
    Bounds::intersect(area, clip);
    if (Bounds::isValid(area)) {
        font->drawString(text, dst, x + bounds->x, y + bounds->y, area->x, area->y, area->w,
                         area->h, colour);
    }
}
