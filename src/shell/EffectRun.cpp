// SPDX-License-Identifier: MIT
#include "EffectRun.h"

#include "FxCatalogue.h"
#include "Lpc.h"
#include "ProgressLine.h"
#include "WavFile.h"
#include "WavProc.h"
#include "WavProps.h"
#include "WpMicPostProc.h"
#include "WpRobot.h"

#include <utility>

EffectRun::EffectRun(int32_t effect, bool clean, ProgressLine& progress)
    : effectName(FxCatalogue::at(effect).word)
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
        sound = run(*cleaner, "clean-up", std::move(sound));
    }
    return sound != nullptr ? run(*processor, effectName, std::move(sound)) : Sound();
}

Sound EffectRun::run(WavProc& work, const char* step, Sound sound) {
    work.initWithOwn(std::move(sound), WavFile::kRateHz);
    while (work.getLastProgress() < WavProc::kFinished) {
        const int32_t done = work.process();
        if (done < 0) {
            return Sound();
        }
        progress.show(step, done, WavProc::kFinished);
    }
    return Sound(work.getResult());
}

int32_t EffectRun::applicationsLongest() {
    return WavProps::kLongestSoundSeconds * WavFile::kRateHz;
}

int32_t EffectRun::effectsLongest(int32_t effect) {
    return FxCatalogue::at(effect).longestSamples;
}
