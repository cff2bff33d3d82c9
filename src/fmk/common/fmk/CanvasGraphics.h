// SPDX-License-Identifier: MIT
// Draws into a raw screen buffer.
#pragma once

#include "GnoGraphics.h"

class CanvasGraphics : public GnoGraphics {
public:
    /// @param buffer  w * h pixels of 16 bits, not owned; aligned for them
    CanvasGraphics(unsigned char* buffer, int32_t w, int32_t h)
        : GnoGraphics(reinterpret_cast<uint16_t*>(buffer), w, h) {}
};
