// SPDX-License-Identifier: MIT
#include "SoundMeter.h"

#include "ArrFunc.h"
#include "WavFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

constexpr double kFullScale = 32768.0;
constexpr int32_t kWindow = 480;     // 60 ms: several periods of a low voice
constexpr int32_t kHop = 160;        // 20 ms
constexpr int32_t kShortest = 16;    // periods, samples: 500 Hz
constexpr int32_t kLongest = 133;    // 60 Hz
constexpr double kVoiced = 0.6;      // likeness of neighbouring periods; noise has less
constexpr double kNearlyBest = 0.9;  // a multiple of the period fits as well as the period itself
constexpr double kQuietest = 300.0;  // RMS of a window that counts
constexpr int32_t kCompared = kWindow - kLongest - 1;
constexpr size_t kLags = kLongest + 2;  // lags 0 to kLongest + 1

double toDb(double ratio) {
    return ratio > 0.0 ? 20.0 * std::log10(ratio) : -std::numeric_limits<double>::infinity();
}

/// How similar a window is to the samples lag later: 1.0 if they are the same.
double likenessAt(const int32_t* samples, int32_t lag) {
    double product = 0.0;
    double here = 1.0;  // not 0: it is a divisor, also for silence
    double there = 1.0;
    for (int32_t i = 0; i < kCompared; i++) {
        const double a = samples[i];
        const double b = samples[i + lag];
        product += a * b;
        here += a * a;
        there += b * b;
    }
    return product / std::sqrt(here * there);
}

double squareSum(const int32_t* samples, int32_t count) {
    double sum = 0.0;
    for (int32_t i = 0; i < count; i++) {
        sum += static_cast<double>(samples[i]) * samples[i];
    }
    return sum;
}

}  // namespace

SoundMeter::SoundMeter(const int32_t* samples)
    : samples(samples) {}

double SoundMeter::seconds() const {
    return static_cast<double>(length(samples)) / WavFile::kRateHz;
}

double SoundMeter::peakDb() const {
    int32_t largest = 0;
    for (int32_t i = 0; i < length(samples); i++) {
        largest = std::max(largest, std::abs(samples[i]));
    }
    return toDb(largest / kFullScale);
}

double SoundMeter::rmsDb() const {
    const int32_t count = length(samples);
    return toDb(count > 0 ? std::sqrt(squareSum(samples, count) / count) / kFullScale : 0.0);
}

double SoundMeter::pitchHz() const {
    std::vector<double> pitches;
    for (int32_t at = 0; at + kWindow <= length(samples); at += kHop) {
        if (squareSum(samples + at, kWindow) < kWindow * kQuietest * kQuietest) {
            continue;
        }
        const double pitch = windowPitchHz(samples + at);
        if (pitch > 0.0) {
            pitches.push_back(pitch);
        }
    }
    if (pitches.empty()) {
        return 0.0;
    }
    const auto middle = pitches.begin() + static_cast<std::ptrdiff_t>(pitches.size() / 2);
    std::nth_element(pitches.begin(), middle, pitches.end());
    return *middle;
}

// The pitch by the shortest lag that is nearly as good as the best, placed between the samples by a
// parabola.
double SoundMeter::windowPitchHz(const int32_t* samples) {
    std::array<double, kLags> likeness{};
    double best = 0.0;
    for (int32_t lag = kShortest - 1; lag <= kLongest + 1; lag++) {
        likeness[static_cast<size_t>(lag)] = likenessAt(samples, lag);
        if (lag >= kShortest && lag <= kLongest) {
            best = std::max(best, likeness[static_cast<size_t>(lag)]);
        }
    }
    for (size_t lag = kShortest; best > kVoiced && lag <= kLongest; lag++) {
        const double before = likeness[lag - 1];
        const double here = likeness[lag];
        const double after = likeness[lag + 1];
        if (here > kNearlyBest * best && here >= before && here >= after) {
            const double bend = before - 2.0 * here + after;
            const double shift = bend == 0.0 ? 0.0 : 0.5 * (before - after) / bend;
            return WavFile::kRateHz / (static_cast<double>(lag) + shift);
        }
    }
    return 0.0;
}
