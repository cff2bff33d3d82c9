// SPDX-License-Identifier: MIT
#include "WpMicPostProc.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Kernels.h"
#include "MeanFilter.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int32_t kCleaned = 200;   // progress after fades and filter
constexpr int32_t kLevelled = 300;  // progress after the level curve

// Takes up to this length are not faded: the two ramps would meet.
constexpr int32_t kLongestUnfadedSamples = 4096;
constexpr int32_t kFadeSamples = 2048;  // a quarter second: the rustle of the finger on the key
constexpr int32_t kFadeShift = 12;

constexpr int32_t kMeanShift = 5;  // 32 samples, 4 ms: below 250 Hz the voice gets thinner

constexpr int32_t kLevelShift = 6;  // one level is 64 steps of a sample
constexpr int32_t kLevelSamples = 1 << kLevelShift;
constexpr int32_t kTopLevel = 32768 >> kLevelShift;

// kSpeechShare of the samples lie below the speech level, which is raised to kSpeechTarget; with a
// higher share speech is raised less. With a higher noise share soft consonants are lost.
constexpr double kSpeechShare = 0.992;
constexpr double kNoiseShare = 0.02;
constexpr int32_t kNoiseTarget = 500;
constexpr int32_t kSpeechTarget = 30000;
constexpr int32_t kTopTarget = 32767;

/// 1 / width as single; infinite for a segment without width.
float stepOver(int32_t width) {
    return static_cast<float>(1.0 / width);
}

/// An entry of the curve, at t (0 to 1) of the way between two targets.
int32_t between(int32_t low, int32_t high, float t) {
    const double share = t;
    return toInt32(share * high + (1.0 - share) * low);
}

int32_t levelOf(int32_t sample) {
    return std::abs(sample >> kLevelShift);
}

/// An entry of the curve and the next one in one word, so that each sample needs only one look-up.
using CurvePairs = uint32_t[kTopLevel];

void pairEntries(const int32_t* curve, CurvePairs& pairs) {
    for (int32_t level = 0; level < kTopLevel; level++) {
        // Entries have 15 bits.
        pairs[level] = static_cast<uint32_t>(curve[level] | curve[level + 1] << 16);
    }
}

MURMELO_KERNEL void
applyCurve(const int32_t* src, const CurvePairs& pairs, int32_t* __restrict dst, int32_t samples) {
    for (int32_t i = 0; i < samples; i++) {
        const int32_t sign = src[i] >> 31;        // -1 for negative samples
        const int32_t magnitude = src[i] ^ sign;  // complement of negative ones: -1 becomes 0
        const auto pair = static_cast<int32_t>(pairs[magnitude >> kLevelShift]);
        const int32_t low = pair & 0xFFFF;
        const int32_t high = pair >> 16;
        const int32_t fraction = magnitude & (kLevelSamples - 1);
        const int32_t mapped = (high * fraction + low * (kLevelSamples - fraction)) >> kLevelShift;
        dst[i] = (mapped ^ sign) - sign;
    }
}

}  // namespace

WpMicPostProc::~WpMicPostProc() {
    WpMicPostProc::doCleanup();
}

void WpMicPostProc::doInit() {
    newResult(length(source));
    doCleanup();
    levelTable.reset(newArray<int32_t>(kTopLevel + 1));
}

int32_t WpMicPostProc::doProcess() {
    switch (getLastProgress()) {
    case 0:
        fadeEdges();
        removeRumble();
        return kCleaned;
    case kCleaned:
        countLevels();
        drawCurve(findLevel());
        mapSamples();
        return kLevelled;
    default:
        return kFinished;
    }
}

void WpMicPostProc::doCleanup() {
    levelTable.reset();
}

// Deliberate: the ramps end just under half gain, and the sample next to a ramp has its full gain.
// The step falls into the breath before the first word.
void WpMicPostProc::fadeEdges() {
    const int32_t samples = length(source);
    if (samples <= kLongestUnfadedSamples) {
        return;
    }
    source[0] = 0;
    for (int32_t i = 1; i < kFadeSamples; i++) {
        source[i] = wrapMul(source[i], i) >> kFadeShift;
        source[samples - i] = wrapMul(source[samples - i], i) >> kFadeShift;
    }
}

void WpMicPostProc::removeRumble() {
    MeanFilter filter(kMeanShift);
    filter.highpass(source, 0, source, 0, length(source));
}

void WpMicPostProc::countLevels() {
    // The filter has clamped every sample to 16 bits. Neighbours often have the same level: they
    // count in two tables, so that neither waits for the other.
    int32_t* even = levelTable;
    int32_t odd[kTopLevel + 1] = {};
    const int32_t* samples = source;
    const int32_t count = length(source);
    for (int32_t i = 0; i + 1 < count; i += 2) {
        even[levelOf(samples[i])]++;
        odd[levelOf(samples[i + 1])]++;
    }
    if (count % 2 != 0) {
        even[levelOf(samples[count - 1])]++;
    }
    for (int32_t level = 0; level <= kTopLevel; level++) {
        even[level] += odd[level];
    }
}

// The level below which nearly all samples lie.
int32_t WpMicPostProc::findLevel() const {
    const int32_t threshold = toInt32(length(source) * kSpeechShare);
    int32_t level = 0;
    int32_t count = levelTable[0];
    // Without samples no level exceeds the threshold; then it is the top one.
    while (count <= threshold && level < kTopLevel) {
        level++;
        count += levelTable[level];
    }
    return level;
}

// Three straight segments: silence to noise, noise to speech, speech to full scale. Later ones
// overwrite the corners of earlier ones.
void WpMicPostProc::drawCurve(int32_t level) {
    const int32_t noise = toInt32(level * kNoiseShare);
    // The step of a segment without width is infinite; 0 times infinity is not a number, which
    // becomes 0.
    const float upperStep = stepOver(kTopLevel - level);
    for (int32_t j = level; j <= kTopLevel; j++) {
        levelTable[j] =
            between(kSpeechTarget, kTopTarget, static_cast<float>(j - level) * upperStep);
    }
    const float middleStep = stepOver(level - noise);
    for (int32_t j = noise; j <= level; j++) {
        levelTable[j] =
            between(kNoiseTarget, kSpeechTarget, static_cast<float>(j - noise) * middleStep);
    }
    const float lowerStep = stepOver(noise);
    for (int32_t j = 0; j <= noise; j++) {
        levelTable[j] =
            toInt32(static_cast<double>(static_cast<float>(j) * lowerStep) * kNoiseTarget);
    }
}

void WpMicPostProc::mapSamples() {
    CurvePairs pairs;
    pairEntries(levelTable, pairs);
    applyCurve(source, pairs, result, length(source));
}
