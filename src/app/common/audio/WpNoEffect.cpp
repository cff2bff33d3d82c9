#include "WpNoEffect.h"

#include "ArrFunc.h"

#include <algorithm>

namespace {

constexpr int32_t kSliceSamples = 8000;  // one second of sound between two paintings of the bar

}  // namespace

void WpNoEffect::doInit() {
    newResult(length(source));
    position = 0;
}

int32_t WpNoEffect::doProcess() {
    const int32_t samples = length(source);
    if (samples == 0) {
        return kFinished;  // nothing to copy, and nothing to divide by
    }
    // Deliberate: a slice covers all that is left, not only its own second. So the first one makes
    // the whole result, and the others would write the same again: they only tell the progress.
    if (position == 0) {
        std::copy_n(source, samples, result);
    }
    position = std::min(position + kSliceSamples, samples);
    return static_cast<int32_t>(int64_t{position} * kFinished / samples);
}
