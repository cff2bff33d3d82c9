// SPDX-License-Identifier: MIT
// Converts the samples of a microphone or a file to the 16 kHz of a take, where the browser does
// not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

/// A polyphase filter, symmetric and without delay: the first output sample lies at the time of the
/// first input sample, and sample n at n/16000 s. Frequencies up to 7/16 of the lower of both rates
/// (7 kHz, if the input has more than 16 kHz) change by at most 0.001 dB; those from 9/16 (9 kHz)
/// on are weakened by at least 85 dB. 16 kHz comes out unchanged.
///
/// The samples are the same with every compiler: the filter is worked out only with + - * / on
/// doubles, which IEEE 754 defines to the last bit, and without a library's sine.
class RateTo16k {
public:
    static constexpr int32_t kMinRateHz = 8000;
    static constexpr int32_t kMaxRateHz = 192000;

    /// True if samples of that rate can be converted to 16 kHz.
    static constexpr bool takes(int32_t rateHz) {
        return rateHz >= kMinRateHz && rateHz <= kMaxRateHz;
    }

    /// @param rateHz  of the input; takes(rateHz) must be true
    explicit RateTo16k(int32_t rateHz);

    RateTo16k(const RateTo16k&) = delete;
    RateTo16k& operator=(const RateTo16k&) = delete;

    /// Appends all output samples that n more input samples determine: up to 24 samples (of the
    /// lower rate) before the last of them. Blocks of any size give the same output, bit for bit.
    /// @param samples  full scale is 1. Louder samples are clamped; NaN becomes silence.
    void convert(const float* samples, int32_t n, std::deque<int16_t>& out);

    /// Appends the rest, as if silence followed: altogether ceil(samples in * 16000 / rate)
    /// samples. After this the next sample begins a new sound.
    void finish(std::deque<int16_t>& out);

private:
    void take(const float* samples, size_t n, std::deque<int16_t>& out);
    void emit(std::deque<int16_t>& out);
    double filtered() const;
    double wing(size_t nearest, int64_t distance, int32_t direction) const;
    void beginSound();

    // Both rates divided by their greatest common divisor: output sample n lies at n * perOut /
    // perIn input samples.
    int64_t perIn;
    int64_t perOut;
    int64_t unit;  // the larger of perIn and perOut; 1/unit of the filter's unit is the grid of
                   // distances
    size_t reach;  // input samples on each side that count for one output sample
    double gain;   // 1 / (input samples within one unit of the filter)
    std::vector<float> half;  // the filter from its middle outwards, kStepsPerUnit values a unit

    std::vector<float> held;  // input samples, the oldest first; silence before the sound
    size_t at = 0;            // index in held: the last input sample not after the next output
    int64_t after = 0;  // from there to the next output, in 1/perIn input samples, 0 to perIn - 1
    int64_t owed = 0;   // input time without output yet, in 1/perIn input samples
};
