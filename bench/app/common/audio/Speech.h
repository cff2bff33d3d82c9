// Real speech for the benchmarks.
#pragma once

#include <cstdint>
#include <vector>

/// So many seconds (at most 70) of a recording of Debian's asterisk-core-sounds-en-wav, 8 kHz. Ends
/// the program with a message where the package is missing.
std::vector<int32_t> loadSpeech(int32_t seconds);
