// SPDX-License-Identifier: MIT
// Sounds and WAV files made by hand, byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class TestSounds {
public:
    using Samples = std::vector<int16_t>;

    static constexpr size_t kHeaderBytes = 44;

    /// No two stretches of it are alike: a sample lost, doubled or moved shows.
    static Samples noise(int32_t count, uint32_t seed = 1);

    static std::string little(uint32_t value, int32_t bytes);

    /// 16-bit mono.
    static std::string header(uint32_t samples, uint32_t rateHz);
    static std::string bytes(const Samples& samples);
    static std::string wav(const Samples& samples, uint32_t rateHz);

    /// The file with other bytes from a place on.
    static std::string changed(std::string wav, size_t at, const std::string& bytes);

    /// The samples after the header.
    static Samples samplesOf(const std::string& wav);
    static Samples part(const Samples& samples, size_t from, size_t count);
};
