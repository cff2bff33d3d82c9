// SPDX-License-Identifier: MIT
// Brings the samples of a microphone or a file to the 16 kHz of a take, where the browser does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

/// A polyphase filter, symmetric and without delay: the first output sample lies at the time of the
/// first input sample, and sample n at n/16000 s. Up to 7/16 of the lower of both rates (7 kHz, if
/// the input has more than 16 kHz) it changes nothing by more than 0.001 dB, and from 9/16 (9 kHz)
/// on it lets nothing through above -85 dB. 16 kHz comes out as it went in.
///
/// Every compiler makes the same samples: the filter is worked out with + - * / on doubles alone,
/// which IEEE 754 defines to the last bit, never by a sine of a mathematical library.
class RateTo16k {
public:
    static constexpr int32_t kMinRateHz = 8000;
    static constexpr int32_t kMaxRateHz = 192000;

    /// Whether samples of that rate can be brought to 16 kHz.
    static constexpr bool takes(int32_t rateHz) {
        return rateHz >= kMinRateHz && rateHz <= kMaxRateHz;
    }

    /// @param rateHz  of the samples that come: one that it takes
    explicit RateTo16k(int32_t rateHz);

    RateTo16k(const RateTo16k&) = delete;
    RateTo16k& operator=(const RateTo16k&) = delete;

    /// Appends all output samples that n more input samples determine: up to 24 samples (of the
    /// lower rate) before the last of them. Blocks of any size give the same output, bit for bit.
    /// @param samples  full scale is 1. What is louder is clamped, not a number becomes silence.
    void convert(const float* samples, int32_t n, std::deque<int16_t>& out);

    /// Appends the rest, as if silence followed: altogether ceil(samples in * 16000 / rate)
    /// samples. The next sample that comes is then the first one of another sound.
    void finish(std::deque<int16_t>& out);

private:
    void take(const float* samples, size_t n, std::deque<int16_t>& out);
    void emit(std::deque<int16_t>& out);
    double filtered() const;
    double wing(size_t nearest, int64_t distance, int32_t direction) const;
    void beginSound();

    // Both rates divided by what divides both: sample n out lies at n * perOut / perIn samples in.
    int64_t perIn;
    int64_t perOut;
    int64_t unit;  // the longer of both periods: distances of the filter are counted in it
    size_t reach;  // samples in on each side that may be heard in one sample out
    double gain;   // makes up for how many samples in lie within one unit
    std::vector<float> half;  // the filter from its middle outwards, kStepsPerUnit values a unit

    std::vector<float> held;  // samples in, the earlier ones first; silence before the sound
    size_t at = 0;            // the last sample in, within held, not later than the next one out
    int64_t after = 0;        // how much later that one is, in 1/perIn samples in: 0 to perIn - 1
    int64_t owed = 0;         // time that came in and did not go out yet, in 1/perIn samples in
};
