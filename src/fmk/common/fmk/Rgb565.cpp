// SPDX-License-Identifier: MIT
#include "Rgb565.h"

#include "Kernels.h"

MURMELO_PIXEL_KERNEL void
Rgb565::storeRow(uint16_t* __restrict dst, const uint32_t* __restrict argb, int32_t n) {
    for (int32_t i = 0; i < n; i++) {
        dst[i] = fromRgb(argb[i]);
    }
}

MURMELO_PIXEL_KERNEL bool
Rgb565::replaceRow(uint16_t* __restrict dst, const uint32_t* __restrict argb, int32_t n) {
    uint16_t differences = 0;
    for (int32_t i = 0; i < n; i++) {
        const uint16_t pixel = fromRgb(argb[i]);
        differences = static_cast<uint16_t>(differences | (pixel ^ dst[i]));
        dst[i] = pixel;
    }
    return differences != 0;
}

MURMELO_KERNEL void
Rgb565::blendRow(uint16_t* __restrict dst, const uint32_t* __restrict argb, int32_t n) {
    for (int32_t i = 0; i < n; i++) {
        dst[i] = blend(argb[i], dst[i]);
    }
}

MURMELO_KERNEL bool Rgb565::isRowOpaque(const uint32_t* argb, int32_t n) {
    uint32_t all = 0xFFFFFFFF;
    for (int32_t i = 0; i < n; i++) {
        all &= argb[i];
    }
    return all >> 24 == 0xFF;
}
