// SPDX-License-Identifier: MIT
#include "AppImage.h"

#include "ArrFunc.h"
#include "HexText.h"
#include "OspBase.h"
#include "PixelMath.h"
#include "PixelRows.h"
#include "PixProps.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>

using Osp::Base::String;

namespace {

constexpr int32_t kUnchanged = 256;  // lightness, saturation, opacity
constexpr int32_t kWhite = 512;      // lightness
constexpr uint32_t kColourMask = 0xFFFFFF;

/// True if a rectangle with at least one pixel lies wholly inside the image.
bool isInside(const AppImage* image, int32_t x, int32_t y, int32_t w, int32_t h) {
    return x >= 0 && y >= 0 && int64_t{x} + w <= image->w && int64_t{y} + h <= image->h;
}

const uint32_t* pixelAt(const AppImage* image, int32_t x, int32_t y) {
    return image->pixels + x + ptrdiff_t{image->w} * y;
}

/// The rectangles of an operation from one image into another.
PixelBlock blockOf(AppImage* dst,
                   AppImage* src,
                   int32_t sx,
                   int32_t sy,
                   int32_t w,
                   int32_t h,
                   int32_t dx,
                   int32_t dy) {
    assert(isInside(src, sx, sy, w, h) && isInside(dst, dx, dy, w, h));
    return {dst->writableRows(dy, h) + dx, dst->w, pixelAt(src, sx, sy), src->w, w, h};
}

PixelBlock blockOf(AppImage* dst, int32_t x, int32_t y, int32_t w, int32_t h) {
    assert(isInside(dst, x, y, w, h));
    return {dst->writableRows(y, h) + x, dst->w, nullptr, dst->w, w, h};
}

uint32_t whiteMaskOf(int32_t lightness) {
    return lightness > kUnchanged ? kColourMask : 0;
}

/// The share of the colour itself, 0 to 256; the rest is black below a lightness of 256, else
/// white.
uint32_t light256Of(int32_t lightness) {
    const int32_t held = std::clamp(lightness, 0, kWhite);
    return static_cast<uint32_t>(held > kUnchanged ? kWhite - held : held);
}

/// Factors that give the same pixels as applyProps.
PixelTint tintOf(const PixProps* props) {
    return {whiteMaskOf(props->lightness), light256Of(props->lightness),
            static_cast<uint32_t>(props->saturation),
            static_cast<uint32_t>(std::min(props->opacity, kUnchanged))};
}

/// 255 * channel / alpha may exceed 8 bits when the colour was not premultiplied.
uint32_t straightChannel(uint32_t channel, uint32_t alpha) {
    return 255 * channel / alpha & 255;
}

}  // namespace

AppImage::AppImage(int32_t w, int32_t h) {
    AppImage::allocate(w, h);
}

AppImage::AppImage(int32_t w, int32_t h, uint32_t argb) {
    AppImage::allocate(w, h);
    AppImage::set(argb);
}

AppImage::AppImage(AppImage* source) {
    AppImage::allocate(source->w, source->h);
    AppImage::set(source);
}

String* AppImage::toString() {
    auto* text = new String("AppImage ");
    text->Append(hexText(hashCode()));
    text->Append(": w = ");
    text->Append(w);
    text->Append(", h = ");
    text->Append(h);
    return text;
}

AppImage::~AppImage() {
    dynamic_dtor();
}

void AppImage::dynamic_dtor() {
    pixels.words.reset();
}

void AppImage::allocate(int32_t w, int32_t h) {
    const int64_t count = int64_t{w} * h;
    if (w < 1 || h < 1) {
        this->w = 0;
        this->h = 0;
        static_cast<void>(pixels.words.release());
        return;
    }
    const bool tooLarge = count > kMaxArrayLength;
    this->w = tooLarge ? 0 : w;
    this->h = tooLarge ? 0 : h;
    if (pixels == nullptr || count != length(pixels)) {
        pixels.words.reset(tooLarge ? nullptr : newArray<uint32_t>(static_cast<int32_t>(count)));
    }
    writableRows(0, this->h);
}

void AppImage::premult() {
    PixelRows::premult(writableRows(0, h), length(pixels));
}

void AppImage::unpremult() {
    uint32_t* words = writableRows(0, h);
    for (int32_t i = 0; i < length(pixels); i++) {
        const uint32_t argb = words[i];
        const uint32_t a = argb >> 24;
        if (a != 0 && a != 255) {
            words[i] = (argb & kAlphaMask) | straightChannel(argb >> 16 & 255, a) << 16 |
                       straightChannel(argb >> 8 & 255, a) << 8 | straightChannel(argb & 255, a);
        }
    }
}

void AppImage::watchRows(Osp::Graphics::RowMarks* marks) {
    written = marks;
    writableRows(0, h);
}

uint32_t AppImage::get(int32_t x, int32_t y) {
    return *pixelAt(this, x, y);
}

void AppImage::set(uint32_t argb, int32_t x, int32_t y) {
    writableRows(y, 1)[x] = argb;
}

void AppImage::blend(uint32_t argb, int32_t x, int32_t y) {
    uint32_t* pixel = writableRows(y, 1) + x;
    *pixel = overPixel(*pixel, argb);
}

void AppImage::set(uint32_t argb) {
    std::fill_n(writableRows(0, h), length(pixels), argb);
}

void AppImage::set(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h) {
    if (w > 0 && h > 0) {
        PixelRows::fill(blockOf(this, x, y, w, h), argb);
    }
}

void AppImage::set(
    AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy) {
    if (w < 1 || h < 1) {
        return;
    }
    const PixelBlock block = blockOf(this, src, sx, sy, w, h, dx, dy);
    for (int32_t i = 0; i < h; i++) {
        // When a part of the image is moved down, the last row is copied first: otherwise rows
        // would be overwritten before they are copied.
        const int32_t row = src == this && dy > sy ? h - 1 - i : i;
        std::memmove(block.dstRow(row), block.srcRow(row),
                     static_cast<size_t>(w) * sizeof(uint32_t));
    }
}

void AppImage::set(AppImage* src, int32_t dx, int32_t dy) {
    set(src, 0, 0, src->w, src->h, dx, dy);
}

void AppImage::set(AppImage* src) {
    assert(length(src->pixels) == length(pixels));
    // Copies the source's pixels, at most as many as fit.
    std::copy_n(src->pixels.get(), std::min(length(src->pixels), length(pixels)),
                writableRows(0, h));
}

void AppImage::blend(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h) {
    const uint32_t a = argb >> 24;
    if (a == 0 || w < 1 || h < 1) {
        return;
    }
    if (a == 255) {
        set(argb, x, y, w, h);
        return;
    }
    PixelRows::overWithColour(blockOf(this, x, y, w, h), argb);
}

void AppImage::blend(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h, PixProps* props) {
    blend(applyProps(argb, props), x, y, w, h);
}

void AppImage::blend(
    AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy) {
    if (src->opaque) {
        set(src, sx, sy, w, h, dx, dy);
        return;
    }
    if (w > 0 && h > 0) {
        PixelRows::over(blockOf(this, src, sx, sy, w, h, dx, dy));
    }
}

void AppImage::blend(AppImage* src,
                     int32_t sx,
                     int32_t sy,
                     int32_t w,
                     int32_t h,
                     int32_t dx,
                     int32_t dy,
                     int32_t opacity) {
    if (opacity <= 0) {
        return;
    }
    if (opacity >= kUnchanged) {
        blend(src, sx, sy, w, h, dx, dy);
        return;
    }
    if (w > 0 && h > 0) {
        PixelRows::overWithOpacity(blockOf(this, src, sx, sy, w, h, dx, dy),
                                   static_cast<uint32_t>(opacity));
    }
}

void AppImage::blend(AppImage* src,
                     int32_t sx,
                     int32_t sy,
                     int32_t w,
                     int32_t h,
                     int32_t dx,
                     int32_t dy,
                     PixProps* props) {
    if (props == nullptr || props->isDefault()) {
        blend(src, sx, sy, w, h, dx, dy);
        return;
    }
    if (props->lightness == kUnchanged && props->saturation == kUnchanged) {
        blend(src, sx, sy, w, h, dx, dy, props->opacity);
        return;
    }
    if (w > 0 && h > 0) {
        PixelRows::overWithTint(blockOf(this, src, sx, sy, w, h, dx, dy), tintOf(props));
    }
}

void AppImage::blend(uint32_t argb,
                     AppImage* mask,
                     int32_t sx,
                     int32_t sy,
                     int32_t w,
                     int32_t h,
                     int32_t dx,
                     int32_t dy,
                     PixProps* props) {
    if (w > 0 && h > 0) {
        PixelRows::overThroughMask(blockOf(this, mask, sx, sy, w, h, dx, dy),
                                   applyProps(argb, props));
    }
}

uint32_t AppImage::premult(uint32_t argb) {
    const uint32_t a = argb >> 24;
    const uint32_t r = a * (argb >> 16 & 255) / 255;
    const uint32_t g = a * (argb >> 8 & 255) / 255;
    const uint32_t b = a * (argb & 255) / 255;
    return (argb & kAlphaMask) | r << 16 | g << 8 | b;
}

uint32_t AppImage::argbLerp(uint32_t c0, uint32_t c1, int32_t t) {
    return lerpPixel(c0, c1, static_cast<uint32_t>(t));
}

uint32_t AppImage::scaleOpacity(uint32_t argb, int32_t opacity) {
    return opacity >= kUnchanged ? argb : scalePixel(argb, static_cast<uint32_t>(opacity));
}

uint32_t AppImage::scaleLightness(uint32_t argb, int32_t lightness) {
    return lightPixel(argb, whiteMaskOf(lightness), light256Of(lightness));
}

uint32_t AppImage::scaleSaturation(uint32_t argb, int32_t saturation) {
    return saturatePixel(argb, static_cast<uint32_t>(saturation));
}

uint32_t AppImage::applyProps(uint32_t argb, PixProps* props) {
    if (props == nullptr) {
        return argb;
    }
    const uint32_t lit = scaleLightness(argb, props->lightness);
    return scaleOpacity(scaleSaturation(lit, props->saturation), props->opacity);
}

void AppImage::blend(uint32_t* dst, int32_t i, uint32_t d, uint32_t s) {
    dst[i] = overPixel(d, s);
}

void AppImage::blend(uint32_t* dst, int32_t i, uint32_t d, uint32_t s, int32_t opacity) {
    dst[i] = overPixel(d, s, static_cast<uint32_t>(opacity));
}

void AppImage::blend(uint32_t* dst,
                     int32_t i,
                     uint32_t rbA,
                     uint32_t agA,
                     uint32_t rbB,
                     uint32_t agB,
                     int32_t fA,
                     int32_t fB) {
    dst[i] = weighPixel(rbA, agA, rbB, agB, static_cast<uint32_t>(fA), static_cast<uint32_t>(fB));
}
