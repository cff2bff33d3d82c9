#include "MeanFilter.h"

#include "Arithmetic.h"
#include "ArrFunc.h"

#include <cassert>

namespace {

int32_t windowSamples(int32_t shift) {
    assert(shift >= 0 && shift <= 23);  // no counted array holds a longer window
    return 1 << shift;
}

}  // namespace

MeanFilter::MeanFilter(int32_t shift)
    : shift(shift)
    , length(windowSamples(shift))
    , mask(length - 1)
    , half(length / 2)
    , ring(newArray<int32_t>(length)) {}

inline void MeanFilter::take(int32_t sample) {
    int32_t& slot = ring[index & mask];
    sum = wrapAdd(sum, wrapSub(sample, slot));
    slot = sample;
}

void MeanFilter::highpass(
    const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n) {
    for (int32_t i = 0; i < n; i++) {
        take(src[srcOff + i]);
        const int32_t delayed = ring[wrapAdd(index, half) & mask];
        dst[dstOff + i] = clampToSample(wrapSub(delayed, sum >> shift));
        index = wrapAdd(index, 1);
    }
}

void MeanFilter::lowpass(
    const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t n, bool clamp) {
    for (int32_t i = 0; i < n; i++) {
        take(src[srcOff + i]);
        index = wrapAdd(index, 1);
        const int32_t mean = sum >> shift;
        dst[dstOff + i] = clamp ? clampToSample(mean) : mean;
    }
}
