// SPDX-License-Identifier: MIT
// One glyph of a bitmap font: a small picture of 4-bit coverage and its place relative to the pen.
//
// Coverage runs from 0 (none) to 15 (full), row by row without padding, eight pixels in a word, the
// first one in bits 28..31. A glyph may belong to more than one font; the last font that drops it
// deletes it.
#pragma once

#include "Array.h"
#include "ClassLife.h"

#include <cstdint>

class AppImage;
class DataInputStream;
class DataOutputStream;

namespace Osp::Base {
class String;
}

class BitMapCharacter : public ClassLife {
public:
    /// Longest edge of a bitmap, in pixels: what one byte of a file can hold.
    static constexpr int32_t kMaxEdgePx = 255;

    /// Without bitmap.
    BitMapCharacter(int32_t codePoint, int32_t advanceWidth, int32_t ofsX, int32_t ofsY);

    /// @param words  counted array of ceil(w * h / 8) words, owned from now on
    BitMapCharacter(int32_t codePoint,
                    uint32_t* words,
                    int32_t w,
                    int32_t h,
                    int32_t advanceWidth,
                    int32_t ofsX,
                    int32_t ofsY);

    /// @param coverage  w * h bytes of 0..15, stays the caller's
    BitMapCharacter(int32_t codePoint,
                    const signed char* coverage,
                    int32_t w,
                    int32_t h,
                    int32_t advanceWidth,
                    int32_t ofsX,
                    int32_t ofsY);

    BitMapCharacter(const BitMapCharacter&) = delete;
    BitMapCharacter& operator=(const BitMapCharacter&) = delete;
    virtual ~BitMapCharacter() = default;

    /// Reads one record of a font file; the caller owns the character. Null if the stream ends
    /// within the seven bytes of the record's head; words that are missing after it are zero.
    static BitMapCharacter* createFrom(DataInputStream* in);
    void writeTo(DataOutputStream* out);

    /// Draws with the bitmap's top left corner at (x, y), blending a premultiplied colour. Pixels
    /// outside the image are left out.
    void draw(AppImage* image, int32_t x, int32_t y, uint32_t colour);

    /// Draws only what lies in the clip rectangle.
    void draw(AppImage* image,
              int32_t x,
              int32_t y,
              int32_t clipX,
              int32_t clipY,
              int32_t clipW,
              int32_t clipH,
              uint32_t colour);

    /// A new string; the caller deletes it.
    virtual Osp::Base::String* toString();

    /// A font calls hold() for each of its characters, and letGo() when it drops one. The last
    /// letGo() deletes the character.
    void hold() { holders++; }

    void letGo();

    int32_t codePoint;
    int32_t advanceWidth;    // px, how far the pen moves on
    int32_t ofsX;            // px, from the pen to the bitmap
    int32_t ofsY;            // px, from the baseline to the top row; negative above it
    Array<uint32_t> pixels;  // none without ink
    int32_t w = 0;           // px
    int32_t h = 0;           // px

private:
    int32_t holders = 0;
};
