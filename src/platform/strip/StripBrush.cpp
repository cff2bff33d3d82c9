// SPDX-License-Identifier: MIT
#include "StripBrush.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "OspBase.h"

#include <algorithm>

using Osp::Base::String;

void StripBrush::fill(const ScreenPlace& place, uint32_t argb) {
    const int32_t left = std::max(place.x, 0);
    const int32_t top = std::max(place.y, 0);
    const int32_t right = std::min(place.x + place.w, image.w);
    const int32_t bottom = std::min(place.y + place.h, image.h);
    if (left < right && top < bottom) {
        image.blend(AppImage::premult(argb), left, top, right - left, bottom - top);
    }
}

void StripBrush::fillRounded(const ScreenPlace& place, uint32_t argb) {
    fill({place.x + 2, place.y, place.w - 4, 1}, argb);
    fill({place.x + 1, place.y + 1, place.w - 2, 1}, argb);
    fill({place.x, place.y + 2, place.w, place.h - 4}, argb);
    fill({place.x + 1, place.y + place.h - 2, place.w - 2, 1}, argb);
    fill({place.x + 2, place.y + place.h - 1, place.w - 4, 1}, argb);
}

void StripBrush::frameRounded(const ScreenPlace& place, uint32_t argb) {
    const int32_t right = place.x + place.w - 1;
    const int32_t bottom = place.y + place.h - 1;
    for (const int32_t y : {place.y, bottom}) {
        fill({place.x + 2, y, place.w - 4, 1}, argb);
    }
    for (const int32_t x : {place.x, right}) {
        fill({x, place.y + 2, 1, place.h - 4}, argb);
    }
    for (const int32_t y : {place.y + 1, bottom - 1}) {
        fill({place.x + 1, y, 1, 1}, argb);
        fill({right - 1, y, 1, 1}, argb);
    }
}

void StripBrush::fade(const ScreenPlace& place, uint32_t top, uint32_t bottom) {
    for (int32_t row = 0; row < place.h; row++) {
        const uint32_t argb = AppImage::argbLerp(top, bottom, row * 256 / std::max(place.h - 1, 1));
        fill({place.x, place.y + row, place.w, 1}, argb | 0xFF000000);
    }
}

void StripBrush::cell(
    AppImage* row, int32_t cells, int32_t index, int32_t x, int32_t y, int32_t opacity) {
    const int32_t width = row != nullptr ? row->w / cells : 0;
    if (width > 0 && x >= 0 && y >= 0 && x + width <= image.w && y + row->h <= image.h) {
        image.blend(row, index * width, 0, width, row->h, x, y, opacity);
    }
}

void StripBrush::text(
    BitMapFont* font, const std::string& utf8, int32_t x, int32_t y, uint32_t argb) {
    String text(utf8.c_str());
    if (font != nullptr && !text.IsEmpty()) {
        font->drawString(&text, &image, x, y, 0, 0, image.w, image.h, AppImage::premult(argb));
    }
}

void StripBrush::textInMiddle(
    BitMapFont* font, const std::string& utf8, int32_t x, int32_t w, int32_t y, uint32_t argb) {
    text(font, utf8, x + (w - widthOf(font, utf8)) / 2, y, argb);
}

int32_t StripBrush::widthOf(BitMapFont* font, const std::string& utf8) {
    String text(utf8.c_str());
    return font != nullptr ? font->getStringWidth(&text) : 0;
}
