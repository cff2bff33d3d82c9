// SPDX-License-Identifier: MIT
#include "FxCatalogue.h"

#include "ArrFunc.h"
#include "WpNoEffect.h"
#include "WpPitchAndTimeStretch.h"
#include "WpReverse.h"
#include "WpRobot.h"

#include <cassert>
#include <cstring>
#include <iterator>

namespace {

// Grain positions are 32-bit numbers in 1/1024 of a sample. The drunk's grains lie twice as far
// apart in the output.
constexpr int32_t kGrainSamples = 1 << 21;  // 262 s
constexpr int32_t kDrunkSamples = 1 << 20;  // 131 s

/// The grains of a sober voice: 25 ms apart, joined over 12.5 ms. Longer grains echo, shorter ones
/// buzz.
WavProc* newSober(float pitch, float tempo) {
    return new WpPitchAndTimeStretch(200, 100, 100, pitch, tempo, WpPitchAndTimeStretch::kPlain);
}

WavProc* newNoEffect() {
    return new WpNoEffect();
}

WavProc* newRobot() {
    return new WpRobot(WpRobot::kConstantPitch);
}

WavProc* newBackwards() {
    return new WpReverse();
}

WavProc* newHighPitch() {
    return newSober(1.8F, 1.0F);
}

WavProc* newLowPitch() {
    return newSober(0.75F, 1.0F);
}

WavProc* newFastTalker() {
    return newSober(1.0F, 0.5F);
}

WavProc* newDrunk() {
    return new WpPitchAndTimeStretch(250, 200, 100, 1.0F, 2.0F, WpPitchAndTimeStretch::kDrunk);
}

WavProc* newIntonationFlip() {
    return new WpRobot(WpRobot::kMirroredPitch);
}

constexpr FxCatalogue::Effect kEffects[] = {
    {"none", "no effect", "the voice as it is", kMaxArrayLength, newNoEffect},
    {"robot", "robot", "a machine that speaks at one pitch", kMaxArrayLength, newRobot},
    {"backwards", "backwards", "from the end to the start", kMaxArrayLength, newBackwards},
    {"high", "high pitch", "1.8 times as high", kGrainSamples, newHighPitch},
    {"low", "low pitch", "three quarters as high", kGrainSamples, newLowPitch},
    {"fast", "fast talker", "twice as fast, at the same pitch", kGrainSamples, newFastTalker},
    {"drunk", "drunk", "half as fast, with a wobbling pitch", kDrunkSamples, newDrunk},
    {"flip", "intonation flip", "the melody of the voice upside down", kMaxArrayLength,
     newIntonationFlip},
};
static_assert(std::size(kEffects) == FxCatalogue::kCount, "one row for each effect");

bool isEffect(int32_t index) {
    return index >= 0 && index < FxCatalogue::kCount;
}

}  // namespace

const FxCatalogue::Effect& FxCatalogue::at(int32_t index) {
    assert(isEffect(index));
    return kEffects[index];
}

WavProc* FxCatalogue::newProcessor(int32_t index) {
    return isEffect(index) ? kEffects[index].make() : nullptr;
}

const char* FxCatalogue::toolName(int32_t index) {
    return isEffect(index) ? kEffects[index].word : nullptr;
}

int32_t FxCatalogue::find(const char* toolName) {
    for (int32_t i = 0; i < kCount; i++) {
        if (std::strcmp(toolName, kEffects[i].word) == 0) {
            return i;
        }
    }
    return -1;
}
