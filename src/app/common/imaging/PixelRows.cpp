#include "PixelRows.h"

#include "Kernels.h"
#include "PixelMath.h"

MURMELO_KERNEL void PixelRows::over(const PixelBlock& block) {
    const int32_t w = block.w;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dst + block.dstStride * row;
        const uint32_t* src = block.src + block.srcStride * row;
        for (int32_t i = 0; i < w; i++) {
            dst[i] = overPixel(dst[i], src[i]);
        }
    }
}

MURMELO_KERNEL void PixelRows::overWithOpacity(const PixelBlock& block, uint32_t opacity256) {
    const int32_t w = block.w;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dst + block.dstStride * row;
        const uint32_t* src = block.src + block.srcStride * row;
        for (int32_t i = 0; i < w; i++) {
            dst[i] = overPixel(dst[i], src[i], opacity256);
        }
    }
}

MURMELO_KERNEL void PixelRows::overWithTint(const PixelBlock& block, const PixelTint& tint) {
    const int32_t w = block.w;
    const PixelTint t = tint;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dst + block.dstStride * row;
        const uint32_t* src = block.src + block.srcStride * row;
        for (int32_t i = 0; i < w; i++) {
            const uint32_t lit = lightenPixel(darkenPixel(src[i], t.darken256), t.lighten256);
            dst[i] =
                overPixel(dst[i], scalePixel(saturatePixel(lit, t.saturation256), t.opacity256));
        }
    }
}

MURMELO_KERNEL void PixelRows::overWithColour(const PixelBlock& block, uint32_t argb) {
    const int32_t w = block.w;
    const uint32_t k256 = 256 - (argb >> 24);
    const uint32_t agUpper = argb & kUpperPairMask;
    const uint32_t rbUpper = (argb & kPairMask) << 8;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dst + block.dstStride * row;
        for (int32_t i = 0; i < w; i++) {
            dst[i] = overPixel(dst[i], agUpper, rbUpper, k256);
        }
    }
}

MURMELO_KERNEL void PixelRows::overThroughMask(const PixelBlock& block, uint32_t argb) {
    const int32_t w = block.w;
    for (int32_t row = 0; row < block.h; row++) {
        uint32_t* dst = block.dst + block.dstStride * row;
        const uint32_t* mask = block.src + block.srcStride * row;
        for (int32_t i = 0; i < w; i++) {
            dst[i] = overPixel(dst[i], scalePixel(argb, mask[i] >> 24));
        }
    }
}

MURMELO_KERNEL void PixelRows::premult(uint32_t* pixels, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        pixels[i] = premultPixel(pixels[i]);
    }
}
