// SPDX-License-Identifier: MIT
#include "RateConverter.h"

#include "Arithmetic.h"
#include "WavFile.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// Rounded, and clamped at full scale: a resampled peak may reach beyond.
int32_t toSample(float value) {
    return clampToSample(toInt32(std::nearbyint(static_cast<double>(value) * 32768.0)));
}

}  // namespace

RateConverter::RateConverter(int32_t rateHz)
    : rateHz(rateHz) {
    if (rateHz == WavFile::kRateHz || rateHz == WavFile::kRecordedRateHz) {
        return;
    }
    resampler = std::make_unique<Resampler>(rateHz, WavFile::kRateHz);
    possible = resampler->isReady();
}

bool RateConverter::convert(const float* samples,
                            size_t count,
                            bool last,
                            std::vector<int32_t>& out) {
    if (rateHz == WavFile::kRecordedRateHz) {
        halve(samples, count, out);
        return true;
    }
    if (resampler != nullptr) {
        return resample(samples, count, last, out);
    }
    for (size_t i = 0; i < count; i++) {
        out.push_back(toSample(samples[i]));
    }
    return true;
}

// Takes the mean of each pair of samples, as the application does with a recording; an odd last
// sample is dropped.
void RateConverter::halve(const float* samples, size_t count, std::vector<int32_t>& out) {
    for (size_t i = 0; i < count; i++) {
        const int32_t sample = toSample(samples[i]);
        if (hasFirst) {
            out.push_back((first + sample) >> 1);
        }
        first = sample;
        hasFirst = !hasFirst;
    }
}

bool RateConverter::resample(const float* samples,
                             size_t count,
                             bool last,
                             std::vector<int32_t>& out) {
    std::vector<float> made;
    if (!resampler->convert(samples, count, last, Resampler::kEndless, made)) {
        return false;
    }
    std::transform(made.begin(), made.end(), std::back_inserter(out), toSample);
    return true;
}
