#include "EffectRun.h"

#include "FxCatalogue.h"
#include "Lpc.h"
#include "ProgressLine.h"
#include "WavFile.h"
#include "WavProc.h"
#include "WavProps.h"
#include "WpMicPostProc.h"
#include "WpRobot.h"

namespace {

constexpr const char* kDescriptions[FxCatalogue::kCount] = {
    "the voice as it is",
    "a machine that speaks at one pitch",
    "from the end to the start",
    "1.8 times as high",
    "three quarters as high",
    "twice as fast, at the same pitch",
    "half as fast, with a wobbling pitch",
    "the melody of the voice upside down",
};

// The grains stand at positions in 1/1024 of a sample, in 32 bits. A drunk's grains lie twice as
// far apart in what comes out.
constexpr int32_t kGrainSamples = 1 << 21;  // 262 s
constexpr int32_t kDrunkSamples = 1 << 20;  // 131 s

}  // namespace

EffectRun::EffectRun(int32_t effect, bool clean, ProgressLine& progress)
    : effectName(FxCatalogue::toolName(effect))
    , progress(progress) {
    Lpc::static_ctor();
    WpRobot::static_ctor();
    if (clean) {
        cleaner = std::make_unique<WpMicPostProc>();
    }
    processor.reset(FxCatalogue::newProcessor(effect));
}

EffectRun::~EffectRun() {
    cleaner.reset();
    processor.reset();
    WavProc::static_dtor();
}

Sound EffectRun::apply(Sound sound) {
    if (cleaner != nullptr) {
        sound = run(*cleaner, "clean-up", sound);
    }
    return sound != nullptr ? run(*processor, effectName, sound) : nullptr;
}

Sound EffectRun::run(WavProc& work, const char* step, const Sound& sound) {
    work.init(sound.get(), WavFile::kRateHz);
    while (work.getLastProgress() < WavProc::kFinished) {
        const int32_t done = work.process();
        if (done < 0) {
            return nullptr;
        }
        progress.show(step, done, WavProc::kFinished);
    }
    return Sound(work.getResult());
}

const char* EffectRun::description(int32_t effect) {
    return kDescriptions[effect];
}

int32_t EffectRun::applicationsLongest() {
    return WavProps::kLongestSoundSeconds * WavFile::kRateHz;
}

int32_t EffectRun::effectsLongest(int32_t effect) {
    switch (effect) {
    case FxCatalogue::kHighPitch:
    case FxCatalogue::kLowPitch:
    case FxCatalogue::kFastTalker:
        return kGrainSamples;
    case FxCatalogue::kDrunk:
        return kDrunkSamples;
    default:
        return kMaxArrayLength;
    }
}
