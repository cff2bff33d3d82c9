// SPDX-License-Identifier: MIT
// Applies an effect of the catalogue as the application does: first the clean-up of a fresh
// recording, then the effect.
//
// Only one object of this class at a time, because the processors keep class-wide state.
#pragma once

#include "Sound.h"

#include <cstdint>
#include <memory>

class ProgressLine;
class WavProc;

class EffectRun {
public:
    /// @param effect  index in the catalogue
    EffectRun(int32_t effect, bool clean, ProgressLine& progress);
    EffectRun(const EffectRun&) = delete;
    EffectRun& operator=(const EffectRun&) = delete;
    ~EffectRun();

    /// Returns no sound (null) if a processor ended with an error.
    Sound apply(Sound sound);

    /// Longest sound that the application works on, samples: 60 seconds.
    static int32_t applicationsLongest();

    /// Longest sound that an effect can work on, samples.
    static int32_t effectsLongest(int32_t effect);

private:
    Sound run(WavProc& work, const char* step, Sound sound);

    std::unique_ptr<WavProc> cleaner;  // null if not wanted
    std::unique_ptr<WavProc> processor;
    const char* effectName;
    ProgressLine& progress;
};
