// SPDX-License-Identifier: MIT
#include "WpRobot.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Rnd.h"
#include "System.h"

#include <algorithm>
#include <cstddef>
#include <utility>

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
    frame.gain = Lpc::encode(source + ptrdiff_t{frameIndex} * kSamples, frame.coefficients);
    frame.period = Lpc::LAST_PERIOD;
    frame.voicing = Lpc::LAST_VOICENESS;
    // Deliberate: the voicing is 0 or at least 100, so every voiced frame counts, however faint.
    if (frame.voicing >= kLeastVoicing && frame.period > kShortestCounted &&
        frame.period < kLongestCounted) {
        periodSum += static_cast<float>(frame.period);
        voicedCount++;
    }
    frameIndex++;
    if (frameIndex < frameCount) {
        return frameIndex * kHalfway / frameCount;
    }
    frameIndex = 0;
    setThroat();
    return kHalfway;
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
    const Frame* frame = &frames[static_cast<size_t>(frameIndex)];
    if (frameIndex == 0) {
        const Frame silence = {{}, 0.0F, 0, 0};
        for (int32_t i = 0; i < kSamples; i++) {
            nextBuffer[i] = excite(silence, *frame, i, *rnd);
        }
    }
    std::swap(frameBuffer, nextBuffer);
    frameIndex++;
    if (frameIndex < frameCount) {
        decodeAndExcite(*frame, frame[1]);
    } else {
        Lpc::decode(frameBuffer, frame->coefficients);
    }
    int32_t* target = result + ptrdiff_t{frameIndex - 1} * kSamples;
    std::transform(frameBuffer, frameBuffer + kSamples, target, clampToSample);
    return kHalfway + frameIndex * (kFinished - kHalfway) / frameCount;
}

// Fills the next frame's buffer while the filter waits for its own outputs.
void WpRobot::decodeAndExcite(const Frame& frame, const Frame& next) {
    Rnd noise = *rnd;  // a local copy can stay in registers
    Lpc::decode(frameBuffer, frame.coefficients, [this, &frame, &next, &noise](int32_t i) {
        nextBuffer[i] = excite(frame, next, i, noise);
    });
    *rnd = noise;
}

// Returns sample i of what a throat would send into the mouth: pulses and noise, mixed by voicing.
// Gain and, if the melody is mirrored, period glide from those of the frame before.
inline int32_t
WpRobot::excite(const Frame& before, const Frame& frame, int32_t i, Rnd& noise) const {
    const float gain =
        before.gain * static_cast<float>(kSamples - i) + frame.gain * static_cast<float>(i);
    const int32_t gainQ10 = toInt32(gain * kQ10PerFrame);
    const int32_t fromPeriod = mode == kMirroredPitch ? before.period : frame.period;
    const int32_t period = (fromPeriod * (kSamples - i) + frame.period * i) / kSamples;
    const int32_t pulse = wrapMul(gainQ10, Lpc::excitation(throat[period], 0)) >> 10;
    const int32_t hiss = wrapMul(gainQ10, noise.nextInt(-kNoise, kNoise)) >> 10;
    const int32_t pulseShare = frame.voicing * frame.voicing >> 10;
    return wrapAdd(wrapMul(1024 - pulseShare, hiss), wrapMul(pulseShare, pulse)) >> 10;
}
