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

/// periods[i]: glides from one frame's period to the next one's, mirrored about the average. An
/// infinite average (no frame had a pitch) makes infinite periods: one pulse, then none.
MURMELO_KERNEL void
mirrorPeriods(int32_t from, int32_t to, float average, int32_t* __restrict periods) {
    for (int32_t i = 0; i < kSamples; i++) {
        // A period has at most 100 samples: the conversion needs no check of its range.
        const auto current = static_cast<int32_t>((from * (kSamples - i) + to * i) / 160.0);
        const float mirrored = average / (static_cast<float>(current) / average);
        periods[i] = toInt32(mirrored + 0.5);
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
    averagePeriod = 0.0F;
    previousGain = 0.0F;
    previousPeriod = 0;
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
    averagePeriod = periodSum / static_cast<float>(voicedCount);  // infinite without a voiced frame
    return kHalfway;
}

int32_t WpRobot::synthesiseFrame() {
    if (frameCount == 0) {
        return kFinished;
    }
    const Frame& frame = frames[static_cast<size_t>(frameIndex)];
    fillBuffer(frame);
    Lpc::decode(frameBuffer, frame.coefficients);
    int32_t* target = result + ptrdiff_t{frameIndex} * kSamples;
    std::transform(frameBuffer, frameBuffer + kSamples, target, clampToSample);
    previousGain = frame.gain;
    previousPeriod = frame.period;
    frameIndex++;
    return kHalfway + frameIndex * (kFinished - kHalfway) / frameCount;
}

// Puts the frame's excitation into the buffer: what a throat would send into the mouth.
void WpRobot::fillBuffer(const Frame& frame) {
    int32_t periods[kSamples];
    int32_t gainsQ10[kSamples];
    int32_t pulses[kSamples];
    int32_t noises[kSamples];
    fillPeriods(frame, periods);
    glideGain(previousGain, frame.gain, gainsQ10);
    for (int32_t i = 0; i < kSamples; i++) {
        pulses[i] = Lpc::excitation(periods[i], 0);
    }
    Rnd noise = *rnd;  // a local copy can stay in registers
    for (int32_t i = 0; i < kSamples; i++) {
        noises[i] = noise.nextInt(-kNoise, kNoise);
    }
    *rnd = noise;
    mixExcitation(gainsQ10, pulses, noises, frame.voicing, frameBuffer);
}

void WpRobot::fillPeriods(const Frame& frame, int32_t* periods) const {
    switch (mode) {
    case kConstantPitch:
        std::fill_n(periods, kSamples, kRobotPeriod);
        break;
    case kMirroredPitch:
        mirrorPeriods(previousPeriod, frame.period, averagePeriod, periods);
        break;
    default:
        std::fill_n(periods, kSamples, frame.period);
    }
}
