// SPDX-License-Identifier: MIT
// The high, low, fast and drunk voices equal their plain model, sample by sample.
#include "AudioSupport.h"
#include "FxCatalogue.h"
#include "SlowEffects.h"
#include "WpPitchAndTimeStretch.h"

#include <gtest/gtest.h>

using audio::Samples;
using audio::slow::Grains;

namespace {

constexpr Grains kHigh = {200, 100, 100, static_cast<double>(1.8F), 1.0, false};
constexpr Grains kLow = {200, 100, 100, 0.75, 1.0, false};
constexpr Grains kFast = {200, 100, 100, 1.0, 0.5, false};
constexpr Grains kDrunk = {250, 200, 100, 1.0, 2.0, true};

struct Case {
    int32_t effect;
    Grains grains;
};

constexpr Case kCases[] = {{FxCatalogue::kHighPitch, kHigh},
                           {FxCatalogue::kLowPitch, kLow},
                           {FxCatalogue::kFastTalker, kFast},
                           {FxCatalogue::kDrunk, kDrunk}};

Samples runEffect(int32_t effect, const Samples& samples, std::vector<int32_t>& progress) {
    const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(effect));
    return audio::run(*processor, samples, progress);
}

Samples runEffect(int32_t effect, const Samples& samples) {
    std::vector<int32_t> progress;
    return runEffect(effect, samples, progress);
}

}  // namespace

TEST(WpPitchAndTimeStretch, everyEffectIsThePlainModelOnNoise) {
    for (const Case& c : kCases) {
        for (const int32_t count : {249, 250, 400, 500, 8000, 12345, 40000}) {
            const Samples samples = audio::roughSignal(count, static_cast<uint32_t>(count));
            ASSERT_EQ(audio::slow::granular(samples, c.grains), runEffect(c.effect, samples))
                << "effect " << c.effect << ", " << count << " samples";
        }
    }
}

TEST(WpPitchAndTimeStretch, everyEffectIsThePlainModelOnRealSpeech) {
    const Samples samples = audio::speechOf(20);
    for (const Case& c : kCases) {
        ASSERT_EQ(audio::slow::granular(samples, c.grains), runEffect(c.effect, samples))
            << "effect " << c.effect;
    }
}

TEST(WpPitchAndTimeStretch, fastTalkerHalvesTheGrainsDistances) {
    std::vector<int32_t> progress;
    EXPECT_EQ(4100U, runEffect(FxCatalogue::kFastTalker, Samples(8000), progress).size());
    EXPECT_EQ(40U, progress.size());
}

TEST(WpPitchAndTimeStretch, resultEndsWithTheLastGrainsSearchAndFade) {
    EXPECT_EQ(200U + 39 * 200, runEffect(FxCatalogue::kHighPitch, Samples(8000)).size());
    EXPECT_EQ(200U + 39 * 200, runEffect(FxCatalogue::kLowPitch, Samples(8199)).size());
    EXPECT_EQ(300U + 31 * 500, runEffect(FxCatalogue::kDrunk, Samples(8000)).size());
}

TEST(WpPitchAndTimeStretch, progressCountsTheGrains) {
    std::vector<int32_t> progress;
    runEffect(FxCatalogue::kHighPitch, Samples(1400), progress);
    EXPECT_EQ((std::vector<int32_t>{146, 292, 438, 585, 731, 877, 1024}), progress);
}

TEST(WpPitchAndTimeStretch, drunksProgressCountsTheGrainsTwice) {
    std::vector<int32_t> progress;
    runEffect(FxCatalogue::kDrunk, Samples(750), progress);
    EXPECT_EQ((std::vector<int32_t>{170, 341, 512, 682, 853, 1024}), progress);
}

TEST(WpPitchAndTimeStretch, soundsWithoutAGrainAreAShortSilence) {
    for (const int32_t count : {0, 1, 199}) {
        const Samples loud(static_cast<size_t>(count), 30000);
        std::vector<int32_t> progress;
        EXPECT_EQ(Samples(200), runEffect(FxCatalogue::kHighPitch, loud, progress));
        EXPECT_EQ(std::vector<int32_t>{1024}, progress);
        EXPECT_EQ(Samples(300), runEffect(FxCatalogue::kDrunk, loud));
    }
}

TEST(WpPitchAndTimeStretch, soundOfOneGrainIsSilence) {
    EXPECT_EQ(Samples(200), runEffect(FxCatalogue::kFastTalker, Samples(399, 30000)));
}

TEST(WpPitchAndTimeStretch, drunkWobblesTheSameWayEveryTime) {
    const Samples samples = audio::glide(20000, 150, 150);
    const std::unique_ptr<WavProc> drunk(FxCatalogue::newProcessor(FxCatalogue::kDrunk));
    const Samples first = audio::run(*drunk, samples);
    EXPECT_EQ(first, audio::run(*drunk, samples));
    EXPECT_EQ(first, runEffect(FxCatalogue::kDrunk, samples));
}

TEST(WpPitchAndTimeStretch, anyOtherModeEndsAtOnceInSilence) {
    WpPitchAndTimeStretch beat(200, 100, 100, 1.0F, 1.0F, 2);
    std::vector<int32_t> progress;
    EXPECT_EQ(Samples(200 + 800), audio::run(beat, Samples(1000, 5), progress));
    EXPECT_EQ(std::vector<int32_t>{1024}, progress);
}
