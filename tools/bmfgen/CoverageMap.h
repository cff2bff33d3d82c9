// SPDX-License-Identifier: MIT
// Converts a glyph from the rasteriser, with 8 bits of coverage for each pixel, to 4 bits, and cuts
// off empty edges.
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

    /// A new character of the pixels that have ink, owned by the caller; without a bitmap if no
    /// pixel has.
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
