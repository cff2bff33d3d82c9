// SPDX-License-Identifier: MIT
#include "WpRobot.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Kernels.h"
#include "Rnd.h"
#include "System.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr int32_t kSamples = Lpc::kFrameSamples;
constexpr int32_t kHalfway = 512;     // progress at which analysis ends and synthesis begins
constexpr int32_t kRobotPeriod = 90;  // samples; 89 Hz, a bored machine
constexpr int32_t kNoise = 20000;     // amplitude of the hiss in unvoiced sounds

// Which frames count for the average period: how voiced they are, and their period in samples.
constexpr double kLeastVoicing = 0.7;
constexpr int32_t kShortestCounted = 16;
constexpr int32_t kLongestCounted = 100;

// Replaces a division by 160 and a multiplication by 1024. The truncated results are the same: a
// single-precision number divided by 5 is either a whole number or further away from one than the
// rounding of a double reaches, and this double lies a little above 6.4.
constexpr double kQ10PerFrame = 6.4;

// Gains from 0 up to this one, as those of all recordings are, become whole numbers without a
// check.
constexpr float kPlainGain = 1e6F;
static_assert(kPlainGain * kSamples * kQ10PerFrame < 2147483647.0);

bool isPlain(float gain) {
    return gain >= 0.0F && gain < kPlainGain;
}

struct Excitation {
    const int32_t* pulses;
    const int32_t* hisses;
    int32_t pulseShare;  // of 1024
    float gainBefore;
    float gainAfter;
};

template <bool kIsPlain>
MURMELO_KERNEL_PART void mixFrame(const Excitation& parts, int32_t* __restrict mixed) {
    for (int32_t i = 0; i < kSamples; i++) {
        const float gain = parts.gainBefore * static_cast<float>(kSamples - i) +
                           parts.gainAfter * static_cast<float>(i);
        const double exactQ10 = gain * kQ10PerFrame;
        const int32_t gainQ10 = kIsPlain ? static_cast<int32_t>(exactQ10) : toInt32(exactQ10);
        const int32_t pulse = wrapMul(gainQ10, parts.pulses[i]) >> 10;
        const int32_t hiss = wrapMul(gainQ10, parts.hisses[i]) >> 10;
        mixed[i] =
            wrapAdd(wrapMul(1024 - parts.pulseShare, hiss), wrapMul(parts.pulseShare, pulse)) >> 10;
    }
}

/// What a throat sends into the mouth in one frame: pulses and hiss. The gain glides from that of
/// the frame before.
MURMELO_KERNEL void mix(const Excitation& parts, int32_t* __restrict mixed) {
    if (kMakesVectors && isPlain(parts.gainBefore) && isPlain(parts.gainAfter)) {
        mixFrame<true>(parts, mixed);
    } else {
        mixFrame<false>(parts, mixed);
    }
}

MURMELO_KERNEL void clampFrame(const int32_t* samples, int32_t* __restrict clamped) {
    std::transform(samples, samples + kSamples, clamped, clampToSample);
}

}  // namespace

bool WpRobot::seedIsFixed = false;
int32_t WpRobot::fixedSeed = 0;

void WpRobot::fixSeed(int32_t seed) {
    seedIsFixed = true;
    fixedSeed = seed;
}

WpRobot::WpRobot(int32_t mode)
    : mode(mode) {}

WpRobot::~WpRobot() {
    WpRobot::doCleanup();
}

void WpRobot::doInit() {
    doCleanup();
    Lpc::init();
    sampleCount = length(source);
    frameCount = sampleCount / kSamples;
    newResult(sampleCount);
    frames.assign(static_cast<size_t>(frameCount), Frame());
    // Deliberate: the sum starts with a period that is never counted. The average comes out a
    // little long and the flipped melody a little low; the fewer voiced frames, the more so.
    periodSum = 60.0F;
    voicedCount = 0;
    frameIndex = 0;
    rnd = std::make_unique<Rnd>(seedIsFixed ? fixedSeed : System::currentTimeMillis());
}

int32_t WpRobot::doProcess() {
    return getLastProgress() < kHalfway ? analyseFrame() : synthesiseFrame();
}

void WpRobot::doCleanup() {
    frameCount = 0;
    frames.clear();
    rnd.reset();
}

int32_t WpRobot::analyseFrame() {
    if (frameCount == 0) {
        return kHalfway;  // shorter than a frame, or cleaned up
    }
    Frame& frame = frames[static_cast<size_t>(frameIndex)];
    const int32_t* samples = source + ptrdiff_t{frameIndex} * kSamples;
    Lpc::computeAutoCorrelation(samples, Lpc::TEMP_R);
    const int32_t place = frameIndex % Lpc::kFiltersAtOnce;
    for (int32_t lag = 0; lag < Lpc::kCoefficients; lag++) {
        correlations[lag][place] = Lpc::TEMP_R[lag];
    }
    if (Lpc::isFaint(samples)) {
        Lpc::LAST_VOICENESS = 0;
    } else {
        Lpc::LAST_PERIOD = Lpc::computePeriod(samples);
    }
    frame.period = Lpc::LAST_PERIOD;
    frame.voicing = Lpc::LAST_VOICENESS;
    // Deliberate: the voicing is 0 or at least 100, so every voiced frame counts, however faint.
    if (frame.voicing >= kLeastVoicing && frame.period > kShortestCounted &&
        frame.period < kLongestCounted) {
        periodSum += static_cast<float>(frame.period);
        voicedCount++;
    }
    if (place + 1 == Lpc::kFiltersAtOnce || frameIndex + 1 == frameCount) {
        setFilters(&frame - place, place + 1);
    }
    frameIndex++;
    if (frameIndex < frameCount) {
        return frameIndex * kHalfway / frameCount;
    }
    frameIndex = 0;
    setThroat();
    return kHalfway;
}

// Works out the filters of the newest frames, whose correlations are known. If they are fewer than
// kFiltersAtOnce, the unused columns hold correlations of earlier frames; their filters are
// ignored.
void WpRobot::setFilters(Frame* newest, int32_t count) {
    float filters[Lpc::kCoefficients][Lpc::kFiltersAtOnce];
    float gains[Lpc::kFiltersAtOnce];
    Lpc::computeFilters(correlations, filters, gains);
    for (int32_t f = 0; f < count; f++) {
        for (int32_t t = 0; t < Lpc::kCoefficients; t++) {
            newest[f].coefficients[t] = filters[t][f];
        }
        newest[f].gain = gains[f];
    }
}

// Decides which period the robot speaks for each period of the voice.
void WpRobot::setThroat() {
    const float average = periodSum / static_cast<float>(voicedCount);
    for (int32_t period = 0; period <= Lpc::kLongestPeriod; period++) {
        // An infinite average (no frame had a pitch) makes infinite periods: one pulse, then none.
        const float mirrored = average / (static_cast<float>(period) / average);
        throat[period] = mode == kConstantPitch   ? kRobotPeriod
                         : mode == kMirroredPitch ? toInt32(mirrored + 0.5)
                                                  : period;
    }
}

int32_t WpRobot::synthesiseFrame() {
    if (frameCount == 0) {
        return kFinished;
    }
    static constexpr Frame kSilence = {};
    const Frame* frame = &frames[static_cast<size_t>(frameIndex)];
    const Frame& before = frameIndex == 0 ? kSilence : frame[-1];
    if (frameIndex == 0) {
        for (int32_t i = 0; i < kSamples; i++) {
            draw(before, *frame, i, *rnd);
        }
    }
    const int32_t pulseShare = frame->voicing * frame->voicing >> 10;
    mix({pulses, hisses, pulseShare, before.gain, frame->gain}, frameBuffer);
    frameIndex++;
    if (frameIndex < frameCount) {
        decodeAndDraw(*frame, frame[1]);
    } else {
        Lpc::decode(frameBuffer, frame->coefficients);
    }
    clampFrame(frameBuffer, result + ptrdiff_t{frameIndex - 1} * kSamples);
    return kHalfway + frameIndex * (kFinished - kHalfway) / frameCount;
}

// Draws the next frame's pulses and hiss while the filter waits for its own outputs.
void WpRobot::decodeAndDraw(const Frame& frame, const Frame& next) {
    Rnd noise = *rnd;  // a local copy can stay in registers
    Lpc::decode(frameBuffer, frame.coefficients,
                [this, &frame, &next, &noise](int32_t i) { draw(frame, next, i, noise); });
    *rnd = noise;
}

// Draws pulse and hiss of sample i. If the melody is mirrored, the period glides from that of the
// frame before.
inline void WpRobot::draw(const Frame& before, const Frame& frame, int32_t i, Rnd& noise) {
    const int32_t fromPeriod = mode == kMirroredPitch ? before.period : frame.period;
    const int32_t period = (fromPeriod * (kSamples - i) + frame.period * i) / kSamples;
    pulses[i] = Lpc::excitation(throat[period], 0);
    hisses[i] = noise.nextInt(-kNoise, kNoise);
}
