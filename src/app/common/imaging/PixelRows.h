// SPDX-License-Identifier: MIT
// The inner loops of AppImage: rectangles of pixels, rows from left to right.
//
// Written so that the compiler vectorises all of them; nothing here checks or clips. Source and
// destination must not overlap.
#pragma once

#include <cstddef>
#include <cstdint>

/// One rectangle in a destination image and one of the same size in a source image.
struct PixelBlock {
    uint32_t* dst;
    int32_t dstStride;  // pixels from one row to the next
    const uint32_t* src;
    int32_t srcStride;
    int32_t w;  // px
    int32_t h;

    uint32_t* dstRow(int32_t row) const { return dst + ptrdiff_t{dstStride} * row; }

    const uint32_t* srcRow(int32_t row) const { return src + ptrdiff_t{srcStride} * row; }
};

/// The factors of a PixProps, converted to ranges that need no special cases.
struct PixelTint {
    uint32_t whiteMask;      // 0xFFFFFF lightens, 0 darkens
    uint32_t light256;       // 256: unchanged
    uint32_t saturation256;  // 256: unchanged
    uint32_t opacity256;     // 256: unchanged
};

class PixelRows {
public:
    static void over(const PixelBlock& rows);

    /// @param opacity256  1..255
    static void overWithOpacity(const PixelBlock& rows, uint32_t opacity256);
    static void overWithTint(const PixelBlock& rows, const PixelTint& tint);

    /// Blends the colour over the destination. Does not use the source; nor does fill().
    static void overWithColour(const PixelBlock& rows, uint32_t argb);

    /// Blends the colour through the source's alpha.
    static void overThroughMask(const PixelBlock& rows, uint32_t argb);

    static void fill(const PixelBlock& rows, uint32_t argb);
    static void premult(uint32_t* pixels, int32_t count);
};
