// SPDX-License-Identifier: MIT
// Brings a sound to another rate, piece by piece.
//
// Level up to 95 % of the band that both rates have, and at least 120 dB down in what would be
// heard at a wrong pitch (docs/speed.md has the curve). Worked out in double precision, so that
// the samples of 16 bits do not depend on the instructions that a processor has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct soxr;

class Resampler {
public:
    /// maxSamples without a limit.
    static constexpr size_t kEndless = SIZE_MAX;

    /// How many times one rate may be the other.
    static constexpr int32_t kMaxTimes = 256;

    /// False where the resampling library is missing.
    static bool isThere();

    Resampler(int32_t fromHz, int32_t toHz);

    /// False if there was no memory or no library, or the rates lie too far apart: convert() fails
    /// then.
    bool isReady() const { return state != nullptr; }

    /// Converts count samples and appends the result to out, until out holds maxSamples. The
    /// whole sound is count * toHz / fromHz samples long, rounded.
    /// @param last  no more will come
    /// @returns false if the resampling library failed
    bool convert(
        const float* samples, size_t count, bool last, size_t maxSamples, std::vector<float>& out);

private:
    bool process(const float* samples, size_t count, size_t maxSamples, std::vector<float>& out);

    std::unique_ptr<soxr, void (*)(soxr*)> state;
};
