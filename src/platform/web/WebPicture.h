// SPDX-License-Identifier: MIT
// The display as the page paints it: the strip's 240 x 80 pixels above the 240 x 320 canvas, with
// four bytes a pixel. Only changed rows are worked out.
#pragma once

#include "Host.h"

#include <cstdint>
#include <vector>

class WebPicture {
public:
    static constexpr int32_t kWidthPx = HostFrame::kWidthPx / HostFrame::kCanvasFactor;
    static constexpr int32_t kHeightPx = HostFrame::kHeightPx / HostFrame::kCanvasFactor;

    /// Rows of the display, both inclusive; none if last is less than first.
    struct Rows {
        int32_t first = 0;
        int32_t last = -1;
    };

    WebPicture();

    /// Works out the rows that may have changed since the last call.
    Rows update(HostFrame& frame);

    /// Red, green, blue and opacity (255) of each pixel, row by row.
    const uint8_t* bytes() const { return reinterpret_cast<const uint8_t*>(pixels.data()); }

private:
    std::vector<uint16_t> display;  // RGB565; only every other row is ever written
    std::vector<uint32_t> pixels;
};
