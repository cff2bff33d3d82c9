// SPDX-License-Identifier: MIT
#include "Chrome.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "G.h"
#include "OspBase.h"
#include "Res.h"

using Osp::Base::String;

void Chrome::drawText(int32_t strId, int32_t fntId, int32_t x, int32_t y, uint32_t argb) {
    String* text = Res::getStr(strId);
    BitMapFont* font = Res::getFont(fntId);
    if (text != nullptr && font != nullptr) {
        font->drawString(text, G::scr, x, y, 0, 0, G::scr->w, G::scr->h, argb);
    }
}

int32_t Chrome::textWidth(int32_t strId, int32_t fntId) {
    String* text = Res::getStr(strId);
    BitMapFont* font = Res::getFont(fntId);
    return text != nullptr && font != nullptr ? font->getStringWidth(text) : 0;
}
