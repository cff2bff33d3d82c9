// SPDX-License-Identifier: MIT
// Turns one channel of any rate into samples of 8 kHz, piece by piece.
#pragma once

#include "Resampler.h"

#include <cstdint>
#include <memory>
#include <vector>

class RateConverter {
public:
    explicit RateConverter(int32_t rateHz);

    /// False for rates that lie too far from 8 kHz.
    bool isPossible() const { return possible; }

    /// Converts count samples (full scale is 1.0) and appends the result, in the range of 16 bits,
    /// to out. @param last true: these are the last samples. @returns false if the resampling
    /// library failed
    bool convert(const float* samples, size_t count, bool last, std::vector<int32_t>& out);

private:
    void halve(const float* samples, size_t count, std::vector<int32_t>& out);
    bool resample(const float* samples, size_t count, bool last, std::vector<int32_t>& out);

    int32_t rateHz;
    bool possible = true;
    std::unique_ptr<Resampler> resampler;  // null for 8 and 16 kHz
    bool hasFirst = false;                 // at 16 kHz: one sample waits for its partner
    int32_t first = 0;
};
