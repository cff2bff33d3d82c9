// SPDX-License-Identifier: MIT
#include "MeanFilter.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace {

constexpr int32_t kBlockSamples = 512;  // at a time; stays in the processor's first cache

int32_t windowSamples(int32_t shift) {
    assert(shift >= 0 && shift <= 23);  // no counted array holds a longer window
    return 1 << shift;
}

/// The change of the sum for each sample: the sample, minus the one that leaves the window.
MURMELO_KERNEL void
subtract(const int32_t* samples, const int32_t* leaving, int32_t* __restrict changes, int32_t n) {
    for (int32_t i = 0; i < n; i++) {
        changes[i] = wrapSub(samples[i], leaving[i]);
    }
}

MURMELO_KERNEL void subtractMeans(const int32_t* samples,
                                  const int32_t* sums,
                                  int32_t shift,
                                  int32_t* __restrict dst,
                                  int32_t n) {
    for (int32_t i = 0; i < n; i++) {
        dst[i] = clampToSample(wrapSub(samples[i], sums[i] >> shift));
    }
}

/// How many samples may be read before the first output is written. If src and dst are the same
/// array and the output goes to later places, an output must be written before its place is read.
int32_t
readable(const int32_t* src, int32_t srcOff, const int32_t* dst, int32_t dstOff, int32_t n) {
    return src == dst && dstOff > srcOff ? std::min(n, dstOff - srcOff) : n;
}

}  // namespace

MeanFilter::MeanFilter(int32_t shift)
    : shift(shift)
    , length(windowSamples(shift))
    , half(length / 2)
    , recent(static_cast<size_t>(length + std::max(length, 2 * kBlockSamples)))
    , end(length)
    , sums(kBlockSamples) {}

int32_t MeanFilter::take(const int32_t* src, int32_t n) {
    const auto room = static_cast<int32_t>(recent.size());
    if (end == room) {
        std::copy_n(&recent[static_cast<size_t>(end - length)], length, recent.data());
        end = length;
    }
    const int32_t count = std::min({n, room - end, kBlockSamples});
    int32_t* samples = recent.data() + end;
    std::copy_n(src, count, samples);
    subtract(samples, samples - length, sums.data(), count);
    int32_t last = sum;
    for (int32_t i = 0; i < count; i++) {
        last = wrapAdd(last, sums[static_cast<size_t>(i)]);
        sums[static_cast<size_t>(i)] = last;
    }
    sum = last;
    end += count;
    return count;
}

void MeanFilter::highpass(
    const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n) {
    const int32_t atOnce = readable(src, srcOff, dst, dstOff, n);
    for (int32_t done = 0; done < n;) {
        const int32_t count = take(src + srcOff + done, std::min(n - done, atOnce));
        const int32_t* delayed = recent.data() + end - count - half;
        subtractMeans(delayed, sums.data(), shift, dst + dstOff + done, count);
        done += count;
    }
}

void MeanFilter::lowpass(
    const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n, bool clamp) {
    const int32_t atOnce = readable(src, srcOff, dst, dstOff, n);
    for (int32_t done = 0; done < n;) {
        const int32_t count = take(src + srcOff + done, std::min(n - done, atOnce));
        for (int32_t i = 0; i < count; i++) {
            const int32_t mean = sums[static_cast<size_t>(i)] >> shift;
            dst[dstOff + done + i] = clamp ? clampToSample(mean) : mean;
        }
        done += count;
    }
}
