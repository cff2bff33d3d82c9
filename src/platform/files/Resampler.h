// SPDX-License-Identifier: MIT
// Converts a sound to another rate, piece by piece.
//
// The frequency response is flat up to 95 % of the band that both rates have. Frequencies that
// would be heard at a wrong pitch are weakened by at least 115 dB (docs/speed.md has the curve).
// Works in double precision, so that the 16-bit samples are the same on processors with different
// instructions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct soxr;

class Resampler {
public:
    /// Value of maxSamples for no limit.
    static constexpr size_t kEndless = SIZE_MAX;

    /// The largest ratio of the two rates.
    static constexpr int32_t kMaxTimes = 256;

    /// True if the machine has the resampling library.
    static bool isThere();

    Resampler(int32_t fromHz, int32_t toHz);

    /// False if memory or the library is missing, or the rates lie too far apart. Then convert()
    /// fails.
    bool isReady() const { return state != nullptr; }

    /// Converts count samples and appends the result to out, until out holds maxSamples. The
    /// whole sound is count * toHz / fromHz samples long, rounded.
    /// @param last  true: these are the last samples of the sound
    /// @returns false if the resampling library failed
    bool convert(
        const float* samples, size_t count, bool last, size_t maxSamples, std::vector<float>& out);

private:
    bool process(const float* samples, size_t count, size_t maxSamples, std::vector<float>& out);

    std::unique_ptr<soxr, void (*)(soxr*)> state;
};
