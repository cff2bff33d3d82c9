// SPDX-License-Identifier: MIT
// The wheels in the recorder's window, which turn during recording and playing.
#pragma once

#include <cstdint>

class Wheels {
public:
    /// Paints one of six phases, which make a seamless turn: the background's own wheels and five
    /// pictures.
    /// @param frame  counts from 0
    static void paint(int32_t frame);
};
