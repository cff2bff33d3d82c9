// SPDX-License-Identifier: MIT
#include "BitMapCharacter.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "DataInputStream.h"
#include "DataOutputStream.h"
#include "OspBase.h"
#include "PixelMath.h"
#include "StringBuffer.h"

#include <algorithm>
#include <cassert>

using Osp::Base::String;

namespace {

constexpr int32_t kPixelsPerWord = 8;
constexpr int32_t kHeaderBytes = 7;  // of a record: code point, advance, offsets, size

int32_t wordCount(int32_t w, int32_t h) {
    return (w * h + kPixelsPerWord - 1) / kPixelsPerWord;
}

uint32_t coverageAt(const uint32_t* words, int32_t index) {
    return words[index >> 3] >> (28 - 4 * (index & 7)) & 15;
}

/// A premultiplied colour at one of the fifteen coverages, over d. Nothing saturates: the sums rely
/// on premultiplied colours.
uint32_t inkOver(uint32_t d, uint32_t colour, uint32_t coverage) {
    const uint32_t ink = scalePixel(colour, 17 * coverage + 1);  // 15 gives 256 / 256
    const uint32_t k256 = 256 - (ink >> 24);
    const uint32_t rb = (redBlueOf(d) * k256 >> 8) & kPairMask;
    const uint32_t ag = (alphaGreenOf(d) * k256) & kUpperPairMask;
    return (rb + (ink & kPairMask)) | (ag + (ink & kUpperPairMask));
}

}  // namespace

BitMapCharacter::BitMapCharacter(int32_t codePoint,
                                 int32_t advanceWidth,
                                 int32_t ofsX,
                                 int32_t ofsY)
    : codePoint(codePoint)
    , advanceWidth(advanceWidth)
    , ofsX(ofsX)
    , ofsY(ofsY) {}

BitMapCharacter::BitMapCharacter(int32_t codePoint,
                                 uint32_t* words,
                                 int32_t w,
                                 int32_t h,
                                 int32_t advanceWidth,
                                 int32_t ofsX,
                                 int32_t ofsY)
    : codePoint(codePoint)
    , advanceWidth(advanceWidth)
    , ofsX(ofsX)
    , ofsY(ofsY)
    , pixels(words)
    , w(w)
    , h(h) {
    assert(w >= 0 && h >= 0 && w <= kMaxEdgePx && h <= kMaxEdgePx);
    assert(length(words) >= wordCount(w, h));
}

BitMapCharacter::BitMapCharacter(int32_t codePoint,
                                 const signed char* coverage,
                                 int32_t w,
                                 int32_t h,
                                 int32_t advanceWidth,
                                 int32_t ofsX,
                                 int32_t ofsY)
    : BitMapCharacter(
          codePoint, newArray<uint32_t>(wordCount(w, h)), w, h, advanceWidth, ofsX, ofsY) {
    for (int32_t i = 0; i < w * h; i++) {
        pixels[i >> 3] |= (static_cast<uint32_t>(coverage[i]) & 15) << (28 - 4 * (i & 7));
    }
}

void BitMapCharacter::letGo() {
    holders--;
    if (holders < 1) {
        delete this;
    }
}

BitMapCharacter* BitMapCharacter::createFrom(DataInputStream* in) {
    int32_t header[kHeaderBytes];
    for (int32_t& byte : header) {
        byte = in->read();
        if (byte < 0) {
            return nullptr;  // half a record would be taken for another character
        }
    }
    const int32_t codePoint = header[0] << 8 | header[1];
    const auto advanceWidth = static_cast<signed char>(header[2]);
    const auto ofsX = static_cast<signed char>(header[3]);
    const auto ofsY = static_cast<signed char>(header[4]);
    const int32_t w = header[5];
    const int32_t h = header[6];
    if (w == 0 || h == 0) {
        return new BitMapCharacter(codePoint, advanceWidth, ofsX, ofsY);
    }
    const int32_t count = wordCount(w, h);
    const Array<signed char> bytes(newArray<signed char>(4 * count));
    in->readFully(bytes);
    auto* words = newArray<uint32_t>(count);
    for (int32_t i = 0; i < 4 * count; i++) {
        words[i >> 2] |= (static_cast<uint32_t>(bytes[i]) & 255) << (24 - 8 * (i & 3));
    }
    return new BitMapCharacter(codePoint, words, w, h, advanceWidth, ofsX, ofsY);
}

void BitMapCharacter::writeTo(DataOutputStream* out) {
    const bool hasBitmap = pixels != nullptr && w > 0 && h > 0;
    out->writeShort(codePoint);
    out->writeByte(advanceWidth);
    out->writeByte(ofsX);
    out->writeByte(ofsY);
    out->writeByte(hasBitmap ? w : 0);
    out->writeByte(hasBitmap ? h : 0);
    for (int32_t i = 0; hasBitmap && i < wordCount(w, h); i++) {
        out->writeInt(static_cast<int32_t>(pixels[i]));
    }
}

void BitMapCharacter::draw(AppImage* image, int32_t x, int32_t y, uint32_t colour) {
    draw(image, x, y, 0, 0, image->w, image->h, colour);
}

void BitMapCharacter::draw(AppImage* image,
                           int32_t x,
                           int32_t y,
                           int32_t clipX,
                           int32_t clipY,
                           int32_t clipW,
                           int32_t clipH,
                           uint32_t colour) {
    if (pixels == nullptr) {
        return;
    }
    // Sums in 64 bits, because a clip may end at the largest coordinate. Cut to the image too:
    // callers may place a glyph anywhere.
    const auto end = [](int32_t at, int32_t glyph, int32_t clip, int32_t clipSize, int32_t size) {
        return std::min({int64_t{at} + glyph, int64_t{clip} + clipSize, int64_t{size}});
    };
    const int64_t endX = end(x, w, clipX, clipW, image->w);
    const int64_t endY = end(y, h, clipY, clipH, image->h);
    const int32_t startX = std::max({x, clipX, 0});
    const int32_t startY = std::max({y, clipY, 0});
    if (startY >= endY) {
        return;
    }
    uint32_t* dst = image->writableRows(startY, static_cast<int32_t>(endY) - startY);
    for (int32_t row = startY; row < endY; row++, dst += image->w) {
        const int32_t rowStart = w * (row - y);
        for (int32_t column = startX; column < endX; column++) {
            const uint32_t coverage = coverageAt(pixels, rowStart + column - x);
            if (coverage > 0) {
                dst[column] = inkOver(dst[column], colour, coverage);
            }
        }
    }
}

String* BitMapCharacter::toString() {
    StringBuffer text;
    text.append("codePoint: ")->append(codePoint);
    text.append(", w: ")->append(w);
    text.append(", h: ")->append(h);
    text.append(", adv.w.: ")->append(advanceWidth);
    text.append(", ofsX: ")->append(ofsX);
    text.append(", ofsY: ")->append(ofsY);
    return text.toString();
}
