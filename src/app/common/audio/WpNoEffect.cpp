// SPDX-License-Identifier: MIT
#include "WpNoEffect.h"

#include "ArrFunc.h"

#include <algorithm>

namespace {

constexpr int32_t kSliceSamples = 8000;  // one second of sound for each step of the progress bar

}  // namespace

void WpNoEffect::doInit() {
    newResultLater(length(source));
    position = 0;
}

int32_t WpNoEffect::doProcess() {
    const int32_t samples = length(source);
    if (samples == 0) {
        return kFinished;  // nothing to copy, and no division by 0 samples
    }
    // Deliberate: the first slice makes the whole result; the others only report progress, one
    // second of sound at a time.
    if (position == 0) {
        fillResult();
        std::copy_n(source, samples, result.get());
    }
    position = std::min(position + kSliceSamples, samples);
    return static_cast<int32_t>(int64_t{position} * kFinished / samples);
}
