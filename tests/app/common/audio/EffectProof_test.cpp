// SPDX-License-Identifier: MIT
// The effects do what their names say, measured on speech instead of compared with stored numbers.
#include "AudioSupport.h"
#include "FxCatalogue.h"
#include "TestHost.h"
#include "WpRobot.h"

#include <gtest/gtest.h>

#include <cmath>

using audio::Samples;

namespace {

class EffectProof : public testing::Test {
protected:
    void SetUp() override { WpRobot::fixSeed(1); }

    void TearDown() override { WpRobot::followClock(); }

    static Samples apply(int32_t effect, const Samples& samples) {
        const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(effect));
        return audio::run(*processor, samples);
    }

    TestHost host;
};

/// The ratios of the output's pitch to the input's, at all places where both are voiced; places in
/// the output are scaled by the tempo.
std::vector<double> pitchRatios(const Samples& input, const Samples& output, double tempo) {
    constexpr int32_t kWindow = 480;
    std::vector<double> ratios;
    for (size_t at = 0; at + kWindow <= input.size(); at += 160) {
        const auto outAt = static_cast<size_t>(static_cast<double>(at) * tempo);
        if (outAt + kWindow > output.size()) {
            break;
        }
        const double before = audio::pitchHz(&input[at], kWindow);
        const double after = audio::pitchHz(&output[outAt], kWindow);
        if (before > 0.0 && after > 0.0) {
            ratios.push_back(after / before);
        }
    }
    std::sort(ratios.begin(), ratios.end());
    return ratios;
}

double median(const std::vector<double>& sorted) {
    return sorted.empty() ? 0.0 : sorted[sorted.size() / 2];
}

int64_t distance(size_t a, size_t b) {
    return std::abs(static_cast<int64_t>(a) - static_cast<int64_t>(b));
}

int32_t peak(const Samples& samples) {
    int32_t largest = 0;
    for (const int32_t sample : samples) {
        largest = std::max(largest, std::abs(sample));
    }
    return largest;
}

}  // namespace

TEST_F(EffectProof, highRaisesThePitchBy1Point8AndKeepsTheLength) {
    const Samples input = audio::speechOf(20);
    const Samples output = apply(FxCatalogue::kHighPitch, input);
    const std::vector<double> ratios = pitchRatios(input, output, 1.0);
    ASSERT_GT(ratios.size(), 100U);
    EXPECT_NEAR(1.8, median(ratios), 1.8 * 0.03);
    EXPECT_LE(distance(input.size(), output.size()), 200);
}

TEST_F(EffectProof, lowLowersThePitchToThreeQuartersAndKeepsTheLength) {
    const Samples input = audio::speechOf(20);
    const Samples output = apply(FxCatalogue::kLowPitch, input);
    const std::vector<double> ratios = pitchRatios(input, output, 1.0);
    ASSERT_GT(ratios.size(), 100U);
    EXPECT_NEAR(0.75, median(ratios), 0.75 * 0.03);
    EXPECT_LE(distance(input.size(), output.size()), 200);
}

TEST_F(EffectProof, fastHalvesTheLengthAndKeepsThePitch) {
    const Samples input = audio::speechOf(20);
    const Samples output = apply(FxCatalogue::kFastTalker, input);
    EXPECT_LE(distance(input.size() / 2, output.size()), 200);
    const std::vector<double> ratios = pitchRatios(input, output, 0.5);
    ASSERT_GT(ratios.size(), 100U);
    EXPECT_NEAR(1.0, median(ratios), 0.03);
}

TEST_F(EffectProof, drunkDoublesTheLengthAndWobblesThePitch) {
    const Samples input = audio::glide(160000, 160, 160);
    const Samples output = apply(FxCatalogue::kDrunk, input);
    EXPECT_LE(distance(input.size() * 2, output.size()), 300);
    const std::vector<double> ratios = pitchRatios(input, output, 2.0);
    ASSERT_GT(ratios.size(), 500U);
    const size_t outliers = ratios.size() / 50;  // the meter may err at a join
    EXPECT_GT(ratios[outliers], 0.86 * 0.99);
    EXPECT_LT(ratios[ratios.size() - 1 - outliers], 1.055 * 1.01);
    EXPECT_GT(ratios[ratios.size() - 1 - outliers] - ratios[outliers], 0.05);  // it does wobble
}

TEST_F(EffectProof, drunkDoublesTheLengthOfSpeechWithinItsPitches) {
    const Samples input = audio::speechOf(20);
    const Samples output = apply(FxCatalogue::kDrunk, input);
    EXPECT_LE(distance(input.size() * 2, output.size()), 300);
    const double ratio = median(pitchRatios(input, output, 2.0));
    EXPECT_GT(ratio, 0.86);
    EXPECT_LT(ratio, 1.05);
}

TEST_F(EffectProof, robotSpeaksAt89HzWhateverTheVoice) {
    const double robotHz = 8000.0 / 90.0;
    for (const double voiceHz : {110.0, 150.0, 230.0}) {
        const Samples output =
            apply(FxCatalogue::kRobot, audio::glide(40000, voiceHz, voiceHz * 1.2));
        EXPECT_NEAR(robotHz, audio::medianPitchHz(output), robotHz * 0.01) << voiceHz;
    }
    const Samples output = apply(FxCatalogue::kRobot, audio::speechOf(20));
    EXPECT_NEAR(robotHz, audio::medianPitchHz(output), robotHz * 0.01);
}

TEST_F(EffectProof, flipMakesARisingVoiceFallAndAFallingOneRise) {
    constexpr int32_t kCount = 24000;
    for (const auto& [from, to] : {std::pair(110.0, 180.0), std::pair(180.0, 110.0)}) {
        const Samples output = apply(FxCatalogue::kIntonationFlip, audio::glide(kCount, from, to));
        const Samples start(output.begin() + 3000, output.begin() + 6000);
        const Samples end(output.end() - 6000, output.end() - 3000);
        const double startHz = audio::medianPitchHz(start);
        const double endHz = audio::medianPitchHz(end);
        ASSERT_GT(startHz, 0.0);
        ASSERT_GT(endHz, 0.0);
        // The melody is as steep as before, in the other direction.
        const double steepness = std::log(endHz / startHz) / std::log(from / to);
        EXPECT_GT(steepness, 0.5);
        EXPECT_LT(steepness, 1.2);
    }
}

TEST_F(EffectProof, backwardsTwiceIsTheIdentity) {
    const Samples input = audio::speechOf(20);
    const Samples output = apply(FxCatalogue::kBackwards, input);
    EXPECT_NE(input, output);
    EXPECT_EQ(input, apply(FxCatalogue::kBackwards, output));
}

TEST_F(EffectProof, noEffectIsTheIdentity) {
    const Samples input = audio::speechOf(20);
    EXPECT_EQ(input, apply(FxCatalogue::kNoEffect, input));
}

TEST_F(EffectProof, nothingGetsLouderThanTheLoudestSampleWhereNoFilterSpeaks) {
    const Samples input = audio::speechOf(20);
    for (const int32_t effect : {FxCatalogue::kHighPitch, FxCatalogue::kLowPitch,
                                 FxCatalogue::kFastTalker, FxCatalogue::kDrunk}) {
        EXPECT_LE(peak(apply(effect, input)), peak(input)) << effect;
    }
}

TEST_F(EffectProof, robotVoicesClipNoSampleInAHundred) {
    const Samples input = audio::speechOf(20);
    for (const int32_t effect : {FxCatalogue::kRobot, FxCatalogue::kIntonationFlip}) {
        const Samples output = apply(effect, input);
        const auto clipped = std::count_if(output.begin(), output.end(), [](int32_t sample) {
            return sample == 32767 || sample == -32768;
        });
        EXPECT_LT(clipped, 1600) << effect;
    }
}
