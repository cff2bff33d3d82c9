// SPDX-License-Identifier: MIT
// The eight ways to mirror and turn a rectangular region: which source pixel belongs to a pixel of
// the result.
//
// 0 none, 1 mirrored and turned by 180 degrees, 2 mirrored, 3 turned by 180, 4 mirrored and turned
// by 270, 5 turned by 90, 6 turned by 270, 7 mirrored and turned by 90. Mirroring swaps left and
// right and comes first; turns are clockwise.
#pragma once

#include <cstdint>

class RegionTransform {
public:
    /// @param w, h  size of the region in the source
    RegionTransform(int32_t transform, int32_t w, int32_t h)
        : transform(transform)
        , w(w)
        , h(h) {}

    static bool isKnown(int32_t transform) { return transform >= 0 && transform <= 7; }

    int32_t resultWidth() const { return swapsAxes() ? h : w; }

    int32_t resultHeight() const { return swapsAxes() ? w : h; }

    /// Column and row within the region of the pixel at (i, j) of the result.
    int32_t sourceX(int32_t i, int32_t j) const {
        const int32_t x = swapsAxes() ? j : i;
        return (transform & kFlipX) != 0 ? w - 1 - x : x;
    }

    int32_t sourceY(int32_t i, int32_t j) const {
        const int32_t y = swapsAxes() ? i : j;
        return (transform & kFlipY) != 0 ? h - 1 - y : y;
    }

private:
    // The numbers of the transforms are bit sets of these.
    static constexpr int32_t kFlipY = 1;
    static constexpr int32_t kFlipX = 2;
    static constexpr int32_t kSwapAxes = 4;

    bool swapsAxes() const { return (transform & kSwapAxes) != 0; }

    int32_t transform;
    int32_t w;
    int32_t h;
};
