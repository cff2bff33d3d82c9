// SPDX-License-Identifier: MIT
// The robot and the flipped melody equal their plain model, sample by sample.
#include "AudioSupport.h"
#include "SlowEffects.h"
#include "TestHost.h"
#include "WpRobot.h"

#include <gtest/gtest.h>

#include <cmath>

using audio::Samples;

namespace {

class WpRobotTest : public testing::Test {
protected:
    void SetUp() override {
        Lpc::static_ctor();
        WpRobot::static_ctor();
    }

    void TearDown() override { WpRobot::static_dtor(); }

    TestHost host;
    WpRobot robot{WpRobot::kConstantPitch};
    WpRobot flip{WpRobot::kMirroredPitch};
};

}  // namespace

TEST_F(WpRobotTest, bothModesAreThePlainModelOnNoise) {
    for (const int32_t count : {160, 161, 319, 320, 4096, 20000}) {
        const Samples samples = audio::roughSignal(count, static_cast<uint32_t>(count));
        host.nowMs = count;
        EXPECT_EQ(audio::slow::robot(samples, 1, count), audio::run(robot, samples)) << count;
        EXPECT_EQ(audio::slow::robot(samples, 2, count), audio::run(flip, samples)) << count;
    }
}

TEST_F(WpRobotTest, bothModesAreThePlainModelOnRealSpeech) {
    const Samples samples = audio::speechOf(20);
    WpRobot::fixSeed(4711);
    EXPECT_EQ(audio::slow::robot(samples, 1, 4711), audio::run(robot, samples));
    EXPECT_EQ(audio::slow::robot(samples, 2, 4711), audio::run(flip, samples));
}

TEST_F(WpRobotTest, framesWithoutAGainAreThePlainModel) {
    Samples samples = audio::speechOf(1);
    const Samples wide = audio::noise(4000, 1 << 28);  // sums wrap, and some have no root
    samples.insert(samples.end(), wide.begin(), wide.end());
    int32_t withoutGain = 0;
    for (size_t at = 8000; at + 160 <= samples.size(); at += 160) {
        float gain = 0.0F;
        audio::slow::filter(audio::slow::autoCorrelation(&samples[at]), gain);
        withoutGain += std::isnan(gain) ? 1 : 0;
    }
    ASSERT_GT(withoutGain, 0);
    WpRobot::fixSeed(5);
    EXPECT_EQ(audio::slow::robot(samples, 1, 5), audio::run(robot, samples));
    EXPECT_EQ(audio::slow::robot(samples, 2, 5), audio::run(flip, samples));
}

TEST_F(WpRobotTest, anyOtherModeKeepsTheVoicesOwnPitch) {
    WpRobot same(0);
    const Samples voice = audio::glide(8000, 160, 160);
    WpRobot::fixSeed(1);
    const Samples spoken = audio::run(same, voice);
    EXPECT_EQ(audio::slow::robot(voice, 0, 1), spoken);
    EXPECT_NEAR(160, audio::pitchHz(spoken.data() + 2000, 4000), 4);
    const Samples metal = audio::run(robot, voice);
    EXPECT_NEAR(89, audio::pitchHz(metal.data() + 2000, 4000), 2);
}

TEST_F(WpRobotTest, soundWithoutAVoicedFrameMirrorsAboutInfinity) {
    const Samples hiss = audio::noise(8000, 300);
    WpRobot::fixSeed(1);
    EXPECT_EQ(audio::slow::robot(hiss, 1, 1), audio::run(robot, hiss));
    EXPECT_EQ(audio::slow::robot(hiss, 2, 1), audio::run(flip, hiss));
}

TEST_F(WpRobotTest, progressCountsTheFramesTwice) {
    std::vector<int32_t> progress;
    audio::run(robot, Samples(3 * 160 + 5), progress);
    EXPECT_EQ((std::vector<int32_t>{170, 341, 512, 682, 853, 1024}), progress);
}

TEST_F(WpRobotTest, soundsShorterThanAFrameAreSilence) {
    for (const int32_t count : {0, 1, 159}) {
        std::vector<int32_t> progress;
        const Samples loud(static_cast<size_t>(count), 30000);
        EXPECT_EQ(Samples(loud.size()), audio::run(robot, loud, progress));
        EXPECT_EQ((std::vector<int32_t>{512, 1024}), progress);
    }
}

TEST_F(WpRobotTest, samplesAfterTheLastFrameAreSilent) {
    const Samples result = audio::run(robot, audio::glide(500, 150, 150));
    ASSERT_EQ(500U, result.size());
    EXPECT_NE(Samples(20), Samples(result.begin() + 460, result.begin() + 480));
    EXPECT_EQ(Samples(20), Samples(result.begin() + 480, result.end()));
}

TEST_F(WpRobotTest, noiseFollowsTheClockAndRepeatsWithASeed) {
    const Samples samples = audio::roughSignal(4000);
    host.nowMs = 5;
    const Samples first = audio::run(robot, samples);
    EXPECT_EQ(first, audio::run(robot, samples));
    host.nowMs = 6;
    EXPECT_NE(first, audio::run(robot, samples));
    WpRobot::fixSeed(5);
    EXPECT_EQ(first, audio::run(robot, samples));
    WpRobot::followClock();
    EXPECT_NE(first, audio::run(robot, samples));
}

TEST_F(WpRobotTest, nothingOfTheRunBeforeIsHeard) {
    const Samples samples = audio::speech("demo-echotest");
    WpRobot::fixSeed(3);
    const Samples first = audio::run(flip, samples);
    audio::run(robot, audio::roughSignal(5000));
    EXPECT_EQ(first, audio::run(flip, samples));
}
