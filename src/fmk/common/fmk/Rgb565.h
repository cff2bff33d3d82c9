// SPDX-License-Identifier: MIT
// Arithmetic of 16-bit device pixels: red in bits 11..15, green 5..10, blue 0..4.
//
// Conversions in both directions only cut bits off or append zeros. Nothing is rounded or repeated,
// so white becomes 0xF8FCF8 after both.
#pragma once

#include <cstdint>

class Rgb565 {
public:
    /// Keeps the top bits of each channel; the alpha byte is ignored.
    static constexpr uint16_t fromRgb(uint32_t argb) {
        // In values of 16 bits, because a vector register holds twice as many of them.
        const auto redHalf = static_cast<uint16_t>(argb >> 16);
        const auto greenBlueHalf = static_cast<uint16_t>(argb);
        return static_cast<uint16_t>((redHalf << 8 & 0xF800) | (greenBlueHalf >> 5 & 0x07E0) |
                                     (greenBlueHalf >> 3 & 0x001F));
    }

    /// 0x00RRGGBB; the low bits of each channel are 0.
    static constexpr uint32_t toRgb(uint16_t pixel) {
        return (uint32_t{pixel} & 0xF800) << 8 | (uint32_t{pixel} & 0x07E0) << 5 |
               ((uint32_t{pixel} << 3) & 0xFF);
    }

    /// Blends one straight ARGB word over a pixel, each 8-bit channel by itself:
    /// (a * src + (255 - a) * dst) / 255.
    static constexpr uint16_t blend(uint32_t argb, uint16_t dst) {
        const uint32_t a = argb >> 24;
        const uint32_t d = toRgb(dst);
        return fromRgb(blendChannel(argb >> 16, d >> 16, a) << 16 |
                       blendChannel(argb >> 8, d >> 8, a) << 8 | blendChannel(argb, d, a));
    }

    /// Converts n ARGB words. The rows do not overlap.
    static void storeRow(uint16_t* dst, const uint32_t* argb, int32_t n);

    /// The same. Returns true if a pixel has changed.
    static bool replaceRow(uint16_t* dst, const uint32_t* argb, int32_t n);

    /// Blends n straight ARGB words over what is there. The rows do not overlap.
    static void blendRow(uint16_t* dst, const uint32_t* argb, int32_t n);

    /// True if each of n words has alpha 255.
    static bool isRowOpaque(const uint32_t* argb, int32_t n);

private:
    static constexpr uint32_t blendChannel(uint32_t src, uint32_t dst, uint32_t a) {
        const uint32_t sum = a * (src & 0xFF) + (255 - a) * (dst & 0xFF);  // at most 255 * 255
        return (sum + 1 + (sum >> 8)) >> 8;  // sum / 255, exact for every sum below 65535
    }
};
