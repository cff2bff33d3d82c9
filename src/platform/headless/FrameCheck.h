// SPDX-License-Identifier: MIT
// Checks for tests, frame by frame, that the display shows what the program has painted.
#pragma once

#include "Host.h"

#include <cstdint>
#include <vector>

class FrameCheck {
public:
    /// Compares a frame with the painted picture in two ways: with all rows worked out, and with
    /// only the changed rows worked out again.
    /// @param canvas  the 240 x 320 pixels that the program has painted, RGB565
    /// @returns true if both show the painted picture
    bool isRight(HostFrame& frame, const std::vector<uint16_t>& canvas);

    int64_t frames() const { return count; }

private:
    int64_t count = 0;
    std::vector<uint16_t> whole;
    std::vector<uint16_t> byChanges;  // empty before the first frame
};
