// SPDX-License-Identifier: MIT
// Sounds and WAV files made by hand, byte by byte.
#pragma once

#include "WavHeader.h"

#include <cstdint>
#include <string>
#include <vector>

class TestSounds {
public:
    using Samples = std::vector<int16_t>;

    static constexpr size_t kHeaderBytes = WavHeader::kBytes;

    /// Noise, no two parts of which are equal, so that a lost, doubled or moved sample is found.
    static Samples noise(int32_t count, uint32_t seed = 1);

    static std::string little(uint32_t value, int32_t bytes);

    /// A WAV header for 16-bit mono.
    static std::string header(uint32_t samples, uint32_t rateHz);
    static std::string bytes(const Samples& samples);
    static std::string wav(const Samples& samples, uint32_t rateHz);

    /// The file with its bytes from at on replaced by these.
    static std::string changed(std::string wav, size_t at, const std::string& bytes);

    /// The samples after the header.
    static Samples samplesOf(const std::string& wav);
    static Samples part(const Samples& samples, size_t from, size_t count);
};
