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

/// gains[i], Q10: glides from one frame's gain to the next one's.
MURMELO_KERNEL void glideGain(float from, float to, int32_t* __restrict gainsQ10) {
    for (int32_t i = 0; i < kSamples; i++) {
        const float sum = from * static_cast<float>(kSamples - i) + to * static_cast<float>(i);
        gainsQ10[i] = toInt32(sum * kQ10PerFrame);
    }
}

/// out[i]: voicing decides how much pulse and how much noise; both times the gain.
MURMELO_KERNEL void mixExcitation(const int32_t* gainsQ10,
                                  const int32_t* pulses,
                                  const int32_t* noises,
                                  int32_t voicing,
                                  int32_t* __restrict out) {
    const int32_t pulseShare = voicing * voicing >> 10;
    const int32_t noiseShare = 1024 - pulseShare;
    for (int32_t i = 0; i < kSamples; i++) {
        const int32_t noise = wrapMul(gainsQ10[i], noises[i]) >> 10;
        const int32_t pulse = wrapMul(gainsQ10[i], pulses[i]) >> 10;
        out[i] = wrapAdd(wrapMul(noiseShare, noise), wrapMul(pulseShare, pulse)) >> 10;
    }
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
    previousGain = 0.0F;
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
    std::copy_n(source + ptrdiff_t{frameIndex} * kSamples, kSamples, frameBuffer);
    frame.gain = Lpc::encode(frameBuffer, frame.coefficients);
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
        drawFirst(*frame);
    }
    fillBuffer(*frame);
    frameIndex++;
    if (frameIndex < frameCount) {
        decodeAndDrawNext(*frame, frame[1]);
    } else {
        Lpc::decode(frameBuffer, frame->coefficients);
    }
    int32_t* target = result + ptrdiff_t{frameIndex - 1} * kSamples;
    std::transform(frameBuffer, frameBuffer + kSamples, target, clampToSample);
    previousGain = frame->gain;
    return kHalfway + frameIndex * (kFinished - kHalfway) / frameCount;
}

// Draws sample i of a frame's pulses and noise. The period glides from that of the frame before it.
inline void WpRobot::drawSample(int32_t i, int32_t fromPeriod, int32_t toPeriod, Rnd& noise) {
    const int32_t period = (fromPeriod * (kSamples - i) + toPeriod * i) / kSamples;
    pulses[i] = Lpc::excitation(throat[period], 0);
    noises[i] = noise.nextInt(-kNoise, kNoise);
}

void WpRobot::drawFirst(const Frame& frame) {
    const int32_t fromPeriod = mode == kMirroredPitch ? 0 : frame.period;
    for (int32_t i = 0; i < kSamples; i++) {
        drawSample(i, fromPeriod, frame.period, *rnd);
    }
}

// Draws the excitation of the next frame in the time that the filter waits for its outputs.
void WpRobot::decodeAndDrawNext(const Frame& frame, const Frame& next) {
    const int32_t fromPeriod = mode == kMirroredPitch ? frame.period : next.period;
    const int32_t toPeriod = next.period;
    Rnd noise = *rnd;  // a local copy can stay in registers
    Lpc::decode(frameBuffer, frame.coefficients, [this, fromPeriod, toPeriod, &noise](int32_t i) {
        drawSample(i, fromPeriod, toPeriod, noise);
    });
    *rnd = noise;
}

// Puts the frame's excitation into the buffer: what a throat would send into the mouth.
void WpRobot::fillBuffer(const Frame& frame) {
    int32_t gainsQ10[kSamples];
    glideGain(previousGain, frame.gain, gainsQ10);
    mixExcitation(gainsQ10, pulses, noises, frame.voicing, frameBuffer);
}
