// SPDX-License-Identifier: MIT
// The clock jumps by a day while the program records, works, plays, waits and sleeps: nothing hangs
// or waits for ever, and no timer goes on after its end.
#include "AudioDev.h"
#include "G.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "ScreensTest.h"
#include "State.h"
#include "TestSounds.h"

namespace {

constexpr int64_t kHourMs = 3600000;
constexpr int64_t kDayMs = 24 * kHourMs;

class ClockJumps : public ScreensTest {
protected:
    ClockJumps() {
        makeSoundFolder();
        host.ears.setVoice(TestSounds::noise(3 * 16000));
    }

    void startRecording() {
        enter(G::stateRecord);
        State::setState(G::stateRecording, true, true);
        pass(1000);
        ASSERT_EQ("Recording", screen());
    }

    void startPlaying() {
        record(TestSounds::noise(3 * 16000), 2000);
        ASSERT_EQ("Play", screen());
        touch(kMiddle);
        ASSERT_EQ("Playing", screen());
        pass(500);
    }
};

}  // namespace

TEST_F(ClockJumps, aDayForwardWhileRecordingEndsTheTakeByTheTimeOut) {
    startRecording();
    host.nowMs += kDayMs;
    pass(0);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(pending().empty());
    EXPECT_GT(TestSounds::kHeaderBytes + 2 * 8000 * 62, folders.read(kTake).size());
}

TEST_F(ClockJumps, anHourBackWhileRecordingLeavesTheStopKeyWorking) {
    host.nowMs = 2 * kHourMs;
    startRecording();
    host.nowMs -= kHourMs;
    touch(kMiddle);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(pending().empty());
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 8000 * 3 / 4,
              folders.read(kTake).size());  // the buffer that was filled
}

TEST_F(ClockJumps, aDayForwardWhilePlayingEndsTheClip) {
    startPlaying();
    host.nowMs += kDayMs;
    pass(1);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_TRUE(pending().empty());
}

TEST_F(ClockJumps, anHourBackWhilePlayingLeavesTheStopKeyWorking) {
    host.nowMs = 2 * kHourMs;
    startPlaying();
    host.nowMs -= kHourMs;
    touch(kMiddle);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_TRUE(pending().empty());
}

TEST_F(ClockJumps, aDayForwardBetweenAnyTwoSlicesChangesNothingOfTheResult) {
    record(TestSounds::noise(3 * 16000), 2000);
    const std::string take = folders.read(kTake);
    State::setState(G::stateSave, true, true);
    for (int32_t slices = 0; screen() == "Process"; slices++) {
        ASSERT_GT(10000, slices);
        host.nowMs += kDayMs / 1000;
        Orm::canvas->run();
    }
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(take, folders.read("home/Murmelo/rec_00000.wav"));  // "No effect" copies
}

TEST_F(ClockJumps, aDayForwardInAPauseIsAPauseOfADay) {
    enter(G::stateSplash);
    pass(1000);
    Orm::setPaused(true);
    host.nowMs += kDayMs;
    EXPECT_EQ(-1, Orm::msUntilDue());
    Orm::setPaused(false);
    EXPECT_EQ("Splash", screen());
    pass(1999);
    EXPECT_EQ("Splash", screen());
    pass(1);
    EXPECT_EQ("Options", screen());
}

TEST_F(ClockJumps, aDayForwardOnScreensAtRestWakesNothing) {
    for (State* resting : {G::stateOptions, G::stateRecord, G::statePlay}) {
        enter(resting);
        host.nowMs += kDayMs;
        const std::string before = screen();
        tick();
        EXPECT_EQ(before, screen());
        EXPECT_TRUE(pending().empty());
    }
}

TEST_F(ClockJumps, aDayForwardInTheMiddleOfASlideEndsIt) {
    enter(G::statePlay);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_RIGHT, nullptr, 0);
    tick();
    pass(50);
    ASSERT_FALSE(pending().empty());
    host.nowMs += kDayMs;
    tick();
    EXPECT_TRUE(pending().empty());
    EXPECT_EQ(1, G::getCurrFx());
}

// A program may stay open until its clock of 32 bits wraps round, in the middle of anything.
TEST_F(ClockJumps, theWrapBetweenAnyTwoSlicesChangesNothingOfTheResult) {
    record(TestSounds::noise(3 * 16000), 2000);
    const std::string take = folders.read(kTake);
    for (const int64_t wrapMs : {int64_t{1} << 31, int64_t{1} << 32}) {
        for (int32_t before = 0; before < 4; before++) {
            folders.remove("home/Murmelo/rec_00000.wav");
            G::setLastPlayedFx(-1);
            host.nowMs = wrapMs - before;
            State::setState(G::stateSave, true, true);
            for (int32_t slices = 0; screen() == "Process"; slices++) {
                ASSERT_GT(100, slices);
                ASSERT_EQ(0, Orm::msUntilDue());
                Orm::canvas->run();
                host.nowMs++;
            }
            EXPECT_EQ("Save", screen());
            EXPECT_EQ(take, folders.read("home/Murmelo/rec_00000.wav"));
        }
    }
}

TEST_F(ClockJumps, theWrapWhilePlayingLeavesTheFramesTheirPace) {
    for (const int64_t wrapMs : {int64_t{1} << 31, int64_t{1} << 32}) {
        record(TestSounds::noise(3 * 16000), 2000);
        host.nowMs = wrapMs - 1005;
        touch(kMiddle);
        ASSERT_EQ("Playing", screen());
        for (int32_t ms = 0; ms < 1500; ms += 10) {
            ASSERT_EQ(Names{"Update@10"}, pending()) << ms;
            pass(10);
        }
        touch(kMiddle);
        EXPECT_EQ("Play", screen());
    }
}

TEST_F(ClockJumps, theWrapWhileRecordingLeavesTheTakeItsTwentySeconds) {
    for (const int64_t wrapMs : {int64_t{1} << 31, int64_t{1} << 32}) {
        enter(G::stateRecord);
        host.nowMs = wrapMs - 12345;
        enter(G::stateRecording);
        pass(19999);
        EXPECT_EQ("Recording", screen());
        pass(1);
        EXPECT_EQ("Play", screen());
        EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 8000 * 20, folders.read(kTake).size());
    }
}
