// SPDX-License-Identifier: MIT
#include "WpPitchAndTimeStretch.h"

#include "Arithmetic.h"
#include "GranularSynth.h"
#include "Rnd.h"

namespace {

constexpr int32_t kHalfway = 512;  // progress at which all pitches are fixed and pasting begins

// The drift: each grain has one chance in eleven of a new target between 0.86 and 1.05 times the
// recorded pitch, and moves 100/256 of the way to it. A wider range sounds sick rather than drunk,
// a faster move like a warped record.
constexpr int32_t kTargetChance = 10;
constexpr int32_t kLowestTargetQ10 = 1024 * 220 >> 8;
constexpr int32_t kHighestTargetQ10 = 1024 * 270 >> 8;
constexpr int32_t kMove256 = 100;

}  // namespace

WpPitchAndTimeStretch::WpPitchAndTimeStretch(
    int32_t step, int32_t fade, int32_t search, float pitch, float tempo, int32_t mode)
    : step(step)
    , fade(fade)
    , search(search)
    , pitch(pitch)
    , tempo(tempo)
    , mode(mode) {}

WpPitchAndTimeStretch::~WpPitchAndTimeStretch() {
    WpPitchAndTimeStretch::doCleanup();
}

void WpPitchAndTimeStretch::doInit() {
    doCleanup();
    rnd = std::make_unique<Rnd>();  // the fixed seed: the same take wobbles the same way every time
    synth = std::make_unique<GranularSynth>(source, step, fade, search,
                                            GranularSynth::Source::kBorrowed);
    grainCount = synth->getNumGrains();
    if (pitch != 1.0F) {
        const int32_t stretchQ10 =
            toInt32(GranularSynth::STR_ONE * static_cast<double>(pitch) + 0.5);
        for (int32_t g = 0; g < grainCount; g++) {
            synth->setStretch(g, stretchQ10);
        }
    }
    if (tempo != 1.0F) {
        synth->scaleDstPos(tempo);
    }
    newResult(synth->getDstLength());
    grainCounter = 0;
}

int32_t WpPitchAndTimeStretch::doProcess() {
    if (synth == nullptr || (mode != kPlain && mode != kDrunk)) {
        return kFinished;
    }
    if (mode == kPlain) {
        return pasteNext(0);
    }
    return getLastProgress() < kHalfway ? countNext() : pasteNext(kHalfway);
}

void WpPitchAndTimeStretch::doCleanup() {
    synth.reset();
    rnd.reset();
}

// Pastes one grain. Over all grains the progress runs from progressBefore to kFinished.
int32_t WpPitchAndTimeStretch::pasteNext(int32_t progressBefore) {
    synth->pasteGrain(grainCounter, result);
    grainCounter++;
    if (grainCounter >= grainCount) {
        return kFinished;  // also for a recording that is shorter than one grain
    }
    return progressBefore + grainCounter * (kFinished - progressBefore) / grainCount;
}

// The first half of a drunk's run only counts the grains, and fixes all pitches at its end.
int32_t WpPitchAndTimeStretch::countNext() {
    grainCounter++;
    if (grainCounter < grainCount) {
        return grainCounter * kHalfway / grainCount;
    }
    grainCounter = 0;
    buildWobble();
    return kHalfway;
}

void WpPitchAndTimeStretch::buildWobble() {
    int32_t stretchQ10 = GranularSynth::STR_ONE;
    int32_t targetQ10 = GranularSynth::STR_ONE;
    for (int32_t g = 0; g < grainCount; g++) {
        if (rnd->nextInt(kTargetChance) == 0) {
            targetQ10 = rnd->nextInt(kLowestTargetQ10, kHighestTargetQ10);
        }
        synth->setStretch(g, stretchQ10);
        stretchQ10 = (targetQ10 * kMove256 + stretchQ10 * (256 - kMove256)) >> 8;
    }
}
