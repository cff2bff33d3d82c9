// SPDX-License-Identifier: MIT
// Changes pitch and tempo independently, by pasting resampled grains: the high, low, fast and drunk
// voices.
#pragma once

#include "WavProc.h"

#include <memory>

class GranularSynth;
class Rnd;

class WpPitchAndTimeStretch : public WavProc {
public:
    using ClassLife::static_dtor;  // WavProc's runs once, not for each effect

    static constexpr int32_t kPlain = 0;
    static constexpr int32_t kDrunk = 1;  // the pitch drifts from grain to grain

    /// @param step,fade,search  lengths in samples, as GranularSynth has them
    /// @param pitch  2.0 is an octave up
    /// @param tempo  length of the result / length of the source: 0.5 is twice as fast
    WpPitchAndTimeStretch(
        int32_t step, int32_t fade, int32_t search, float pitch, float tempo, int32_t mode);
    ~WpPitchAndTimeStretch() override;

    void doInit() override;
    int32_t doProcess() override;
    void doCleanup() override;

private:
    int32_t pasteNext(int32_t progressBefore);
    int32_t countNext();
    void buildWobble();

    std::unique_ptr<GranularSynth> synth;  // null between runs
    int32_t step;
    int32_t fade;
    int32_t search;
    float pitch;
    float tempo;
    int32_t mode;
    int32_t grainCount = 0;
    int32_t grainCounter = 0;
    std::unique_ptr<Rnd> rnd;
};
