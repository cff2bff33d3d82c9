// SPDX-License-Identifier: MIT
// A glyph as it comes from the rasteriser, 8 bits of coverage a pixel, on its way to 4 bits without
// empty edges.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class BitMapCharacter;

class CoverageMap {
public:
    CoverageMap(int32_t w, int32_t h)
        : w(w)
        , h(h)
        , coverage(static_cast<size_t>(w) * static_cast<size_t>(h)) {}

    int32_t width() const { return w; }

    int32_t height() const { return h; }

    /// @param coverage255  0..255, kept as 0..15, rounded
    void set(int32_t x, int32_t y, uint8_t coverage255) {
        coverage[index(x, y)] = static_cast<signed char>((coverage255 * 15 + 127) / 255);
    }

    /// A new character of the pixels that have ink, owned by the caller; without bitmap if none
    /// has.
    /// @param left, top  of the whole map, from the pen and from the baseline
    BitMapCharacter*
    toCharacter(int32_t codePoint, int32_t advance, int32_t left, int32_t top) const;

private:
    size_t index(int32_t x, int32_t y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(w) + static_cast<size_t>(x);
    }

    int32_t w;
    int32_t h;
    std::vector<signed char> coverage;
};
