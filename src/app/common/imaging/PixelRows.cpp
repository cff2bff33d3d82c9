// SPDX-License-Identifier: MIT
#include "PixelRows.h"

#include "Kernels.h"
#include "PixelMath.h"

#include <cstring>

namespace {

// Most pixels of a picture lie in transparent or opaque runs, so pixels are tested in groups.
// Smaller groups would fit into more runs, but the compiler unrolls a loop over 16 pixels
// completely and then does not vectorise it.
constexpr int32_t kGroupPx = 32;
constexpr int32_t kGroupBytes = kGroupPx * 4;
constexpr uint64_t kAlphasMask = 0xFF000000FF000000;  // of two pixels

/// Pixels 2 * pair and 2 * pair + 1, in either order.
inline uint64_t pairOf(const uint32_t* src, int32_t pair) {
    uint64_t both = 0;
    std::memcpy(&both, src + ptrdiff_t{2} * pair, sizeof both);
    return both;
}

/// True if all pixels of a group are 0; blending them over anything changes nothing.
inline bool isNothing(const uint32_t* src) {
    uint64_t any = 0;
    for (int32_t i = 0; i < kGroupPx / 2; i += 4) {
        any |= (pairOf(src, i) | pairOf(src, i + 1)) | (pairOf(src, i + 2) | pairOf(src, i + 3));
    }
    return any == 0;
}

/// True if all pixels of a group are opaque; blending them over anything replaces it.
inline bool isOpaque(const uint32_t* src) {
    uint64_t all = kAlphasMask;
    for (int32_t i = 0; i < kGroupPx / 2; i += 4) {
        all &= (pairOf(src, i) & pairOf(src, i + 1)) & (pairOf(src, i + 2) & pairOf(src, i + 3));
    }
    return all == kAlphasMask;
}

/// True if a pixel shows both itself and what lies below it: it is neither 0 nor opaque.
inline bool isBetween(uint32_t argb) {
    return argb - 1 < kAlphaMask - 1;
}

/// First works out all weights, then all pixels: with two short chains of operations the processor
/// waits less than with one long one.
inline void overGroup(uint32_t* __restrict dst, const uint32_t* __restrict src) {
    uint32_t k256[kGroupPx];
    for (int32_t i = 0; i < kGroupPx; i++) {
        k256[i] = remainder256(src[i]);
    }
    for (int32_t i = 0; i < kGroupPx; i++) {
        dst[i] = overPixelKeeping(dst[i], src[i], k256[i]);
    }
}

inline void
overGroup(uint32_t* __restrict dst, const uint32_t* __restrict src, uint32_t opacity256) {
    uint32_t agScaled[kGroupPx];
    for (int32_t i = 0; i < kGroupPx; i++) {
        agScaled[i] = alphaGreenOf(src[i]) * opacity256;
    }
    for (int32_t i = 0; i < kGroupPx; i++) {
        dst[i] = overPixelScaled(dst[i], redBlueOf(src[i]) * opacity256, agScaled[i]);
    }
}

inline uint32_t tintPixel(uint32_t argb, const PixelTint& tint) {
    const uint32_t lit = lightPixel(argb, tint.whiteMask, tint.light256);
    return scalePixel(saturatePixel(lit, tint.saturation256), tint.opacity256);
}

inline void
overGroup(uint32_t* __restrict dst, const uint32_t* __restrict src, const PixelTint& tint) {
    uint32_t tinted[kGroupPx];
    for (int32_t i = 0; i < kGroupPx; i++) {
        tinted[i] = tintPixel(src[i], tint);
    }
    for (int32_t i = 0; i < kGroupPx; i++) {
        dst[i] = overPixel(dst[i], tinted[i]);
    }
}

inline void overRest(uint32_t* __restrict dst, const uint32_t* __restrict src, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        dst[i] = overPixel(dst[i], src[i]);
    }
}

inline void overRest(uint32_t* __restrict dst,
                     const uint32_t* __restrict src,
                     int32_t count,
                     uint32_t opacity256) {
    for (int32_t i = 0; i < count; i++) {
        dst[i] = overPixel(dst[i], src[i], opacity256);
    }
}

inline void overRest(uint32_t* __restrict dst,
                     const uint32_t* __restrict src,
                     int32_t count,
                     const PixelTint& tint) {
    for (int32_t i = 0; i < count; i++) {
        dst[i] = overPixel(dst[i], tintPixel(src[i], tint));
    }
}

/// If the rows follow one another without a gap in both images, makes them one long row.
PixelBlock joinRows(const PixelBlock& block) {
    PixelBlock joined = block;
    if (block.w == block.dstStride && block.w == block.srcStride) {
        joined.w = block.w * block.h;
        joined.h = 1;
    }
    return joined;
}

/// Blends row by row: whole groups first, then the remaining pixels.
/// @param modifier  none, an opacity, or a tint; a copy, so that writing pixels cannot change it
template <typename... Modifier>
MURMELO_KERNEL_PART void overRows(const PixelBlock& rows, Modifier... modifier) {
    const PixelBlock block = joinRows(rows);
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dstRow(row);
        const uint32_t* src = block.srcRow(row);
        int32_t left = block.w;
        for (; left >= kGroupPx; left -= kGroupPx) {
            // The first pixel usually shows the kind of its group.
            const bool isModified = sizeof...(modifier) > 0;
            if (!isModified && *src != 0 && !isBetween(*src) && isOpaque(src)) {
                std::memcpy(dst, src, kGroupBytes);
            } else if (*src != 0 || !isNothing(src)) {
                overGroup(dst, src, modifier...);
            }
            dst += kGroupPx;
            src += kGroupPx;
        }
        overRest(dst, src, left, modifier...);
    }
}

}  // namespace

MURMELO_KERNEL void PixelRows::over(const PixelBlock& rows) {
    overRows(rows);
}

MURMELO_KERNEL void PixelRows::overWithOpacity(const PixelBlock& rows, uint32_t opacity256) {
    overRows(rows, opacity256);
}

MURMELO_KERNEL void PixelRows::overWithTint(const PixelBlock& rows, const PixelTint& tint) {
    overRows(rows, tint);
}

MURMELO_KERNEL void PixelRows::overWithColour(const PixelBlock& rows, uint32_t argb) {
    const PixelBlock block = joinRows(rows);
    const uint32_t k256 = remainder256(argb);
    const uint32_t agUpper = argb & kUpperPairMask;
    const uint32_t rbUpper = (argb & kPairMask) << 8;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dstRow(row);
        for (int32_t i = 0; i < block.w; i++) {
            dst[i] = overPixelColour(dst[i], agUpper, rbUpper, k256);
        }
    }
}

MURMELO_KERNEL void PixelRows::overThroughMask(const PixelBlock& rows, uint32_t argb) {
    const PixelBlock block = joinRows(rows);
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dstRow(row);
        const uint32_t* mask = block.srcRow(row);
        for (int32_t i = 0; i < block.w; i++) {
            dst[i] = overPixel(dst[i], scalePixel(argb, mask[i] >> 24));
        }
    }
}

MURMELO_KERNEL void PixelRows::fill(const PixelBlock& rows, uint32_t argb) {
    const PixelBlock block = joinRows(rows);
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dstRow(row);
        for (int32_t i = 0; i < block.w; i++) {
            dst[i] = argb;
        }
    }
}

MURMELO_KERNEL void PixelRows::premult(uint32_t* pixels, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        pixels[i] = premultPixel(pixels[i]);
    }
}
