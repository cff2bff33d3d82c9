// SPDX-License-Identifier: MIT
// Whether the display shows what the program has painted, frame by frame: for tests.
#pragma once

#include "Host.h"

#include <cstdint>
#include <vector>

class FrameCheck {
public:
    /// Compares a frame in two ways with the whole picture: as a host sees it that works out all
    /// rows, and as one sees it that works out the changed rows only.
    /// @param canvas  the 240 x 320 pixels that the program has painted, RGB565
    /// @returns whether both show it
    bool isRight(HostFrame& frame, const std::vector<uint16_t>& canvas);

    int64_t frames() const { return count; }

private:
    int64_t count = 0;
    std::vector<uint16_t> whole;
    std::vector<uint16_t> byChanges;  // empty before the first frame
};
