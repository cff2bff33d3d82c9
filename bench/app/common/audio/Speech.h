// SPDX-License-Identifier: MIT
// Real speech for the benchmarks.
#pragma once

#include <cstdint>
#include <vector>

/// Samples of a recording of Debian's asterisk-core-sounds-en-wav, 8 kHz, cut to this many seconds
/// (at most 70). Ends the program with a message if the package is missing.
std::vector<int32_t> loadSpeech(int32_t seconds);
