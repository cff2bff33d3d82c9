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
    /// @param phones  the phone's own frame, which shows the canvas
    /// @param shown   the frame that the host shows: the phone's, or one with the strip over it.
    ///                Its list of changed rows is read and emptied, except at every third call
    /// @returns true if the phone's frame shows the canvas, and the changed rows make the whole
    ///          picture of the shown one
    bool isRight(HostFrame& phones, HostFrame& shown, const std::vector<uint16_t>& canvas);

    int64_t frames() const { return count; }

private:
    int64_t count = 0;
    std::vector<uint16_t> whole;
    std::vector<uint16_t> byChanges;  // empty before the first frame
};
