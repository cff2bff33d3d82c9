// SPDX-License-Identifier: MIT
// A sound file heard as a microphone: when a buffer is due, what it holds, and how it is lost.
#include "CountingEar.h"
#include "FileMicrophone.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

using Samples = TestSounds::Samples;

namespace {

class FileMicrophoneTest : public testing::Test {
protected:
    Samples take(int32_t count) {
        Samples samples(static_cast<size_t>(count));
        samples.resize(static_cast<size_t>(microphone.take(samples.data(), count)));
        return samples;
    }

    int64_t nowMs = 1000;
    FileMicrophone microphone{[this] { return nowMs; }};
    CountingEar taker{160};
    Samples voice = TestSounds::noise(320);  // 20 ms
};

}  // namespace

TEST_F(FileMicrophoneTest, isDueWhenEnoughWasHeard) {
    EXPECT_EQ(DueTime::kNever, microphone.dueMs());
    microphone.start(taker);
    EXPECT_EQ(1010, microphone.dueMs());
    taker.wanted = 161;
    EXPECT_EQ(1011, microphone.dueMs());
    taker.wanted = 0;
    EXPECT_EQ(DueTime::kNever, microphone.dueMs());
    taker.wanted = 160;
    nowMs = 1009;
    EXPECT_FALSE(microphone.deliver());
    nowMs = 1010;
    EXPECT_TRUE(microphone.deliver());
    EXPECT_EQ(1, taker.calls);
}

TEST_F(FileMicrophoneTest, hearsTheFileAndThenSilence) {
    microphone.setVoice(voice);
    microphone.start(taker);
    nowMs += 30;
    EXPECT_EQ(TestSounds::part(voice, 0, 300), take(300));
    Samples rest = TestSounds::part(voice, 300, 20);
    rest.resize(180, 0);
    EXPECT_EQ(rest, take(300));
    EXPECT_TRUE(take(300).empty());
}

TEST_F(FileMicrophoneTest, withoutAFileItHearsSilence) {
    microphone.start(taker);
    nowMs += 1;
    EXPECT_EQ(Samples(16, 0), take(100));
}

TEST_F(FileMicrophoneTest, whatWasHeardUntilTheStopCanStillBeTaken) {
    microphone.setVoice(voice);
    microphone.start(taker);
    nowMs += 5;
    microphone.stop();
    nowMs += 100;
    EXPECT_FALSE(microphone.deliver());
    EXPECT_EQ(TestSounds::part(voice, 0, 80), take(1000));
    microphone.stop();
    EXPECT_TRUE(take(1000).empty());
}

TEST_F(FileMicrophoneTest, aClockThatJumpsByADayMakesAMinuteOfSound) {
    for (const bool stopsFirst : {true, false}) {
        nowMs = 1000;
        microphone.start(taker);
        take(160);
        nowMs += 86400000;
        if (stopsFirst) {
            microphone.stop();
        } else {
            EXPECT_TRUE(microphone.deliver());
        }
        EXPECT_EQ(60000U * 16, take(2000000).size());
        EXPECT_TRUE(take(1).empty());
        microphone.stop();
    }
}

TEST_F(FileMicrophoneTest, eachRecordingStartsAtTheBeginningOfTheFile) {
    microphone.setVoice(voice);
    for (int32_t i = 0; i < 2; i++) {
        EXPECT_TRUE(microphone.start(taker));
        EXPECT_FALSE(microphone.start(taker));
        nowMs += 5;
        EXPECT_EQ(TestSounds::part(voice, 0, 80), take(1000));
        microphone.stop();
    }
}

TEST_F(FileMicrophoneTest, aNewFileIsHeardFromTheNextRecordingOn) {
    microphone.setVoice(voice);
    microphone.start(taker);
    nowMs += 1;
    microphone.setVoice(Samples(16, 7));
    EXPECT_EQ(TestSounds::part(voice, 0, 16), take(16));
    microphone.stop();
    microphone.start(taker);
    nowMs += 1;
    EXPECT_EQ(Samples(16, 7), take(16));
}

TEST_F(FileMicrophoneTest, aLostMicrophoneKeepsWhatItHeardAndHearsNoMore) {
    microphone.setVoice(voice);
    EXPECT_FALSE(microphone.lose());
    microphone.start(taker);
    EXPECT_FALSE(microphone.isLost());
    nowMs += 5;
    EXPECT_TRUE(microphone.lose());
    EXPECT_EQ(1, taker.losses);
    EXPECT_TRUE(microphone.isLost());
    nowMs += 1000;
    EXPECT_FALSE(microphone.deliver());
    EXPECT_FALSE(microphone.lose());
    EXPECT_EQ(TestSounds::part(voice, 0, 80), take(1000));
}

TEST_F(FileMicrophoneTest, theLossIsForgottenAtTheStopOrTheNextStart) {
    for (const bool stops : {true, false}) {
        microphone.start(taker);
        EXPECT_TRUE(microphone.lose());
        if (stops) {
            microphone.stop();
        } else {
            EXPECT_TRUE(microphone.start(taker));
        }
        EXPECT_FALSE(microphone.isLost()) << stops;
    }
}
