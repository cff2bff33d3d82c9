// SPDX-License-Identifier: MIT
// The header of the WAV files that the program writes: plain 16-bit mono.
#pragma once

#include <cstdint>

struct WavHeader {
    static constexpr int32_t kBytes = 44;
};
