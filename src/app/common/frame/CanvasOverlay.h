// SPDX-License-Identifier: MIT
// A question that is painted over the canvas's picture while the program is paused, above every
// screen.
#pragma once

#include <cstdint>

class CanvasOverlay {
public:
    CanvasOverlay() = default;
    CanvasOverlay(const CanvasOverlay&) = delete;
    CanvasOverlay& operator=(const CanvasOverlay&) = delete;
    virtual ~CanvasOverlay() = default;

    /// Paints over the picture. The canvas shows the result, and then restores the picture.
    virtual void paint() = 0;

    /// A finger was lifted at (x, y), in canvas pixels.
    virtual void release(int32_t x, int32_t y) = 0;
};
