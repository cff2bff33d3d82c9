// SPDX-License-Identifier: MIT
#include "RateTo16k.h"

#include "FloatSample.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <iterator>
#include <numeric>

namespace {

constexpr int32_t kOutHz = 16000;
constexpr int32_t kUnits = 24;  // half the filter's length; longer: steeper between 7 and 9 kHz
// Number of filter values stored per unit. Values in between are interpolated linearly, with an
// error below -105 dB.
constexpr int32_t kStepsPerUnit = 512;
constexpr double kKaiserBeta = 9.4;  // larger: quieter from 9 kHz on, but less steep before
constexpr double kPi = 3.14159265358979323846;
constexpr double kFullScale = 32768.0;
constexpr size_t kBlockSamples = 1024;  // taken at a time: limits the memory

/// sin(pi * x), exactly 0 for whole numbers. Taylor's series, correct to the last bits of a double.
/// @param x  not below 0
double sinPi(double x) {
    const auto whole = static_cast<int32_t>(std::lround(x));
    const double y = kPi * (x - whole);  // -pi/2 to pi/2
    double term = y;
    double sum = y;
    for (int32_t power = 3; power <= 25; power += 2) {
        term *= -(y * y) / (power * (power - 1));
        sum += term;
    }
    return whole % 2 == 0 ? sum : -sum;
}

/// The modified Bessel function of order 0 of 2 * sqrt(quarterSquare). All terms are positive.
double besselI0(double quarterSquare) {
    double term = 1.0;
    double sum = 1.0;
    for (int32_t k = 1; term > sum * 1e-18; k++) {
        term *= quarterSquare / (static_cast<double>(k) * k);
        sum += term;
    }
    return sum;
}

/// The right half of a low-pass filter at half the lower rate, with a Kaiser window. It has one
/// value more than its length, as the end of the last interpolation.
std::vector<float> halfFilter() {
    constexpr double kQuarterBetaSquare = kKaiserBeta * kKaiserBeta / 4;
    const double full = besselI0(kQuarterBetaSquare);
    std::vector<float> values(static_cast<size_t>(kUnits * kStepsPerUnit + 1));
    for (size_t i = 0; i < values.size(); i++) {
        const double x = static_cast<double>(i) / kStepsPerUnit;
        const double outwards = x / kUnits;
        const double window = besselI0(kQuarterBetaSquare * (1 - outwards * outwards)) / full;
        values[i] = static_cast<float>(i == 0 ? 1.0 : window * sinPi(x) / (kPi * x));
    }
    return values;
}

}  // namespace

RateTo16k::RateTo16k(int32_t rateHz)
    : perIn(kOutHz / std::gcd(rateHz, kOutHz))
    , perOut(rateHz / std::gcd(rateHz, kOutHz))
    , unit(std::max(perIn, perOut))
    , reach(static_cast<size_t>((kUnits * unit + perIn - 1) / perIn))
    , gain(static_cast<double>(perIn) / static_cast<double>(unit))
    , half(halfFilter()) {
    assert(takes(rateHz));
    beginSound();
}

void RateTo16k::convert(const float* samples, int32_t n, std::deque<int16_t>& out) {
    auto left = static_cast<size_t>(std::max(n, 0));
    while (left > 0) {
        const size_t now = std::min(left, kBlockSamples);
        owed += static_cast<int64_t>(now) * perIn;
        take(samples, now, out);
        samples += now;
        left -= now;
    }
}

void RateTo16k::finish(std::deque<int16_t>& out) {
    const std::vector<float> silence(reach);
    take(silence.data(), silence.size(), out);
    beginSound();
}

void RateTo16k::beginSound() {
    held.assign(reach, 0.0F);
    at = reach;
    after = 0;
    owed = 0;
}

void RateTo16k::take(const float* samples, size_t n, std::deque<int16_t>& out) {
    std::transform(samples, samples + n, std::back_inserter(held), &FloatSample::tamed);
    emit(out);
    // Keeps only the input samples that the next output sample needs.
    const size_t done = at - reach;
    assert(done <= held.size());
    held.erase(held.begin(), held.begin() + static_cast<std::ptrdiff_t>(done));
    at -= done;
}

/// Makes all output samples for which every input sample that the filter needs has come in.
void RateTo16k::emit(std::deque<int16_t>& out) {
    while (owed > 0 && at + reach < held.size()) {
        out.push_back(FloatSample::toInt16(static_cast<float>(filtered() * kFullScale)));
        owed -= perOut;
        after += perOut;
        at += static_cast<size_t>(after / perIn);
        after %= perIn;
    }
}

double RateTo16k::filtered() const {
    // First the input sample at `at` and the earlier ones, then the later ones.
    return gain * (wing(at, after, -1) + wing(at + 1, perIn - after, 1));
}

/// One half of an output sample: the filtered sum of the input samples on one side of it.
/// @param nearest    the index in held of the first sample of this half
/// @param distance  from that sample to the output sample, in 1/perIn input samples
/// @param direction  -1: earlier samples follow, 1: later ones
double RateTo16k::wing(size_t nearest, int64_t distance, int32_t direction) const {
    // The place in the filter: whole steps, and the rest in 1/unit of a step. Both advance without
    // a division.
    int64_t step = distance * kStepsPerUnit / unit;
    int64_t rest = distance * kStepsPerUnit % unit;
    const int64_t nextStep = perIn * kStepsPerUnit / unit;
    const int64_t nextRest = perIn * kStepsPerUnit % unit;
    const double perRest = 1.0 / static_cast<double>(unit);
    double sum = 0.0;
    const float* sample = &held[nearest];
    while (step < int64_t{kUnits} * kStepsPerUnit) {
        const auto i = static_cast<size_t>(step);
        const double low = half[i];
        const double high = half[i + 1];
        sum += *sample * (low + (high - low) * (static_cast<double>(rest) * perRest));
        sample += direction;
        step += nextStep;
        rest += nextRest;
        if (rest >= unit) {
            rest -= unit;
            step++;
        }
    }
    return sum;
}
