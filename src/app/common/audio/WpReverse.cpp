// SPDX-License-Identifier: MIT
#include "WpReverse.h"

#include "ArrFunc.h"
#include "Kernels.h"

#include <algorithm>

namespace {

constexpr int32_t kSliceSamples = 8000;  // one second of sound for each step of the progress bar

MURMELO_KERNEL void
copyBackwards(const int32_t* sourceEnd, int32_t* __restrict target, int32_t samples) {
    for (int32_t i = 0; i < samples; i++) {
        target[i] = sourceEnd[-1 - i];
    }
}

}  // namespace

void WpReverse::doInit() {
    newResultLater(length(source));
    position = 0;
}

int32_t WpReverse::doProcess() {
    const int32_t samples = length(source);
    if (samples == 0) {
        return kFinished;  // nothing to copy, and no division by 0 samples
    }
    // Deliberate: the first slice makes the whole result; the others only report progress, one
    // second of sound at a time.
    if (position == 0) {
        fillResult();
        copyBackwards(source + samples, result, samples);
    }
    position = std::min(position + kSliceSamples, samples);
    return static_cast<int32_t>(int64_t{position} * kFinished / samples);
}
