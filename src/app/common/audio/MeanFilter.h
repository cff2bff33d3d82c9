// SPDX-License-Identifier: MIT
// Running mean over a power-of-two window: takes out rumble (highpass) or hiss (lowpass).
#pragma once

#include "ClassLife.h"

#include <cstdint>
#include <vector>

class MeanFilter : public ClassLife {
public:
    /// @param shift  log2 of the window length in samples, 0 to 23 (5: 32 samples, 4 ms at 8 kHz)
    explicit MeanFilter(int32_t shift);
    MeanFilter(const MeanFilter&) = delete;
    MeanFilter& operator=(const MeanFilter&) = delete;
    virtual ~MeanFilter() = default;

    /// Writes the input half a window ago minus the window's mean, clamped to 16 bits. State
    /// carries over, so a long take may be filtered in pieces; src may equal dst; if an output goes
    /// to a place that is read later, the output is read there. Offsets and n are in samples; all
    /// of them must lie inside their arrays.
    virtual void
    highpass(const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n);

    /// The same with the window's mean alone, rounded down; clamped to 16 bits only if clamp is
    /// true. The delay of half a window is not compensated.
    virtual void lowpass(
        const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n, bool clamp);

private:
    /// Copies samples into `recent`, and the sums of their windows into `sums`. Returns how many it
    /// has taken: 1 to n.
    int32_t take(const int32_t* src, int32_t n);

    int32_t shift;
    int32_t length;  // window, samples
    int32_t half;
    std::vector<int32_t> recent;  // the samples taken last: up to `end`, at least a window
    int32_t end;
    std::vector<int32_t> sums;  // for each sample of the last take(): its window's sum
    int32_t sum = 0;  // the last one; |sum| <= 32768 << shift fits up to shift 15, wraps beyond
};
