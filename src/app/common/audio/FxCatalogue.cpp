#include "FxCatalogue.h"

#include "WpNoEffect.h"
#include "WpPitchAndTimeStretch.h"
#include "WpReverse.h"
#include "WpRobot.h"

#include <cstring>

namespace {

constexpr const char* kToolNames[FxCatalogue::kCount] = {"none", "robot", "backwards", "high",
                                                         "low",  "fast",  "drunk",     "flip"};

/// The grains of a sober voice: 25 ms apart, joined over 12.5 ms. Longer grains echo, shorter ones
/// buzz.
WavProc* newSober(float pitch, float tempo) {
    return new WpPitchAndTimeStretch(200, 100, 100, pitch, tempo, WpPitchAndTimeStretch::kPlain);
}

}  // namespace

WavProc* FxCatalogue::newProcessor(int32_t index) {
    switch (index) {
    case kNoEffect:
        return new WpNoEffect();
    case kRobot:
        return new WpRobot(WpRobot::kConstantPitch);
    case kBackwards:
        return new WpReverse();
    case kHighPitch:
        return newSober(1.8F, 1.0F);
    case kLowPitch:
        return newSober(0.75F, 1.0F);
    case kFastTalker:
        return newSober(1.0F, 0.5F);
    case kDrunk:
        return new WpPitchAndTimeStretch(250, 200, 100, 1.0F, 2.0F, WpPitchAndTimeStretch::kDrunk);
    case kIntonationFlip:
        return new WpRobot(WpRobot::kMirroredPitch);
    default:
        return nullptr;
    }
}

const char* FxCatalogue::toolName(int32_t index) {
    return index >= 0 && index < kCount ? kToolNames[index] : nullptr;
}

int32_t FxCatalogue::find(const char* toolName) {
    for (int32_t i = 0; i < kCount; i++) {
        if (std::strcmp(toolName, kToolNames[i]) == 0) {
            return i;
        }
    }
    return -1;
}
