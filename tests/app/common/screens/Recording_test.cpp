// SPDX-License-Identifier: MIT
// A recording runs, is stopped or times out, and becomes a take or a message.
#include "AppImage.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Main.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaImage.h"
#include "PaTextArea.h"
#include "Process.h"
#include "Progress.h"
#include "Recording.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"
#include "WavProc.h"

namespace {

class RecordingTest : public ScreensTest {
protected:
    RecordingTest() {
        makeSoundFolder();
        host.ears.setVoice(TestSounds::noise(21 * 16000));
        enter(G::stateRecord);
    }

    void start() { State::setState(G::stateRecording, true, true); }

    /// Columns of the bar that are filled; it was empty before.
    static int32_t filled() {
        const int32_t y = Progress::bar->y + Progress::bar->h / 2;
        const uint32_t full = G::scr->get(Progress::bar->x + 2, y);
        int32_t count = 0;
        while (G::scr->get(Progress::bar->x + 2 + count, y) == full) {
            count++;
        }
        return count;
    }

    static int32_t filledAt(int32_t progress) { return (Progress::bar->w - 4) * progress / 1024; }

    static Pixels part(AppImage* image, int32_t x, int32_t y, int32_t w, int32_t h) {
        Pixels pixels;
        for (int32_t row = y; row < y + h; row++) {
            for (int32_t column = x; column < x + w; column++) {
                pixels.push_back(image->get(column, row));
            }
        }
        return pixels;
    }

    static Pixels light() { return part(G::scr, 0, 192, 83, 86); }

    /// The expected pixels of the lamp.
    static Pixels lightOf(bool isLit) {
        AppImage expected(240, 320);
        G::piBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
        if (isLit) {
            G::piMicLedFlash->paintOn(&expected, 0, 0, G::scrB, nullptr);
        }
        return part(&expected, 0, 192, 83, 86);
    }

    /// The wheels' pixels. (Rows from 213 on belong to the keys.)
    static Pixels wheels(AppImage* image) { return part(image, 176, 179, 64, 32); }

    static Pixels recordKey(AppImage* image) { return part(image, 155, 213, 51, 27); }

    /// Paints one frame of wheels and key over the frames before it.
    static void paintWheelsAndKey(AppImage* image, int32_t frame) {
        PaImage* const phases[] = {nullptr,       G::piWheels15, G::piWheels30,
                                   G::piWheels45, G::piWheels60, G::piWheels75};
        Bounds window(176, 179, 64, 32);
        G::piBg->paintOn(image, 0, 0, &window, nullptr);
        if (phases[frame % 6] != nullptr) {
            phases[frame % 6]->paintOn(image, 0, 0, G::scrB, nullptr);
        }
        G::piButtonsRec->paintOn(image, 0, 0, G::scrB, nullptr);
    }
};

}  // namespace

TEST_F(RecordingTest, beginsWithTheClockTheBarAndNoKeys) {
    G::setLastPlayedFx(3);
    start();
    EXPECT_EQ(AudioDev::kRecording, AudioDev::state);
    EXPECT_EQ((Names{"Update@10", "TimeOut@20000"}), pending());
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    EXPECT_EQ(Str::str_LBL_RECORDING, Progress::caption->getText());
    EXPECT_EQ(-1, G::getLastPlayedFx());
}

TEST_F(RecordingTest, aMicrophoneThatDoesNotStartIsFatal) {
    host.failNth("AudioIn.Start", 1);
    G::setLastPlayedFx(3);
    start();
    EXPECT_EQ(kNoAudio, fatalText());
    EXPECT_TRUE(pending().empty());
    EXPECT_EQ(3, G::getLastPlayedFx());
}

TEST_F(RecordingTest, theStopKeyAppearsWithTheFirstSamples) {
    start();
    pass(740);
    EXPECT_EQ(0, AudioDev::recordLength);
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    touch(kMiddle);
    EXPECT_EQ("Recording", screen());
    pass(20);
    EXPECT_EQ(24000, AudioDev::recordLength);
    EXPECT_EQ((Names{"-", "Stop", "-"}), labels());
}

TEST_F(RecordingTest, aFrameFollowsTenMillisecondsAfterTheOther) {
    start();
    pass(10);
    EXPECT_EQ((Names{"Update@10", "TimeOut@19990"}), pending());
    pass(5);
    EXPECT_EQ((Names{"Update@5", "TimeOut@19985"}), pending());
}

TEST_F(RecordingTest, theBarShowsTheTimeRoundedHalfUp) {
    start();
    pass(5000);
    EXPECT_EQ(filledAt(256), filled());
    pass(5000);
    EXPECT_EQ(filledAt(512), filled());
}

TEST_F(RecordingTest, theBarIsFullFromTheMillisecondThatRoundsUpTo1024) {
    start();
    host.nowMs += 19990;  // 1023.488
    tick();
    EXPECT_EQ(filledAt(1023), filled());
    EXPECT_LT(filledAt(1023), filledAt(1024));
    host.nowMs += 1;  // 1023.54
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    tick();
    EXPECT_EQ(filledAt(1024), filled());
}

TEST_F(RecordingTest, theLightShinesFor16FramesAndIsDarkFor16) {
    start();
    const Pixels lit = lightOf(true);
    const Pixels dark = lightOf(false);
    ASSERT_NE(lit, dark);
    for (int32_t frame = 0; frame < 70; frame++) {
        const bool isDark = frame % 32 >= 16;
        // The lit lamp lies over what is there; the dark one is painted over the lit one.
        Main::paintBg(G::piMicLedFlash, nullptr);
        if (isDark) {
            G::piMicLedFlash->paintOn(G::scr, 0, 0, G::scrB, nullptr);
        }
        pass(10);
        EXPECT_TRUE((isDark ? dark : lit) == light()) << frame;
    }
}

TEST_F(RecordingTest, theWheelsTurnInSixPhasesWithTheRecordKeyDown) {
    start();
    AppImage expected(240, 320);
    G::piBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    G::fxs[G::getCurrFx()]->image->paintOn(&expected, 0, 0, G::scrB, nullptr);
    const Pixels keyUp = recordKey(&expected);
    for (int32_t frame = 0; frame < 13; frame++) {
        pass(10);
        paintWheelsAndKey(&expected, frame);
        EXPECT_TRUE(wheels(&expected) == wheels(G::scr)) << frame;
        EXPECT_TRUE(recordKey(&expected) == recordKey(G::scr)) << frame;
        EXPECT_FALSE(keyUp == recordKey(G::scr)) << frame;
    }
}

TEST_F(RecordingTest, everyTakeBeginsWithTheFirstFrame) {
    start();
    pass(210);  // 21 frames: the light is dark and the wheels stand in their fourth phase
    Orm::setPaused(true);
    Orm::setPaused(false);
    ASSERT_EQ("Options", screen());
    enter(G::stateRecord);
    start();
    const Pixels lit = lightOf(true);
    for (int32_t frame = 0; frame < 16; frame++) {
        Main::paintBg(G::piMicLedFlash, nullptr);
        pass(10);
        EXPECT_TRUE(lit == light()) << frame;
        AppImage expected(240, 320);
        G::piBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
        paintWheelsAndKey(&expected, frame);
        EXPECT_TRUE(wheels(&expected) == wheels(G::scr)) << frame;
    }
}

TEST_F(RecordingTest, stopLoadsTheTakeAndCleansItUp) {
    start();
    pass(1500);
    touch(kMiddle);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    // 1500 ms of 16 kHz have become as many of 8 kHz.
    const std::string take = folders.read(kTake);
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 12000, take.size());
    EXPECT_EQ(TestSounds::little(8000, 4), take.substr(24, 4));
    EXPECT_FALSE(hasResult());
    EXPECT_EQ(-1, G::getLastPlayedFx());
}

TEST_F(RecordingTest, theJobOfTheTakeLeadsToPlayAndBackToTheMenu) {
    start();
    pass(1000);
    Orm::schedEvent(G::EV_T_TIME_OUT, nullptr, nullptr, 0);
    while (screen() != "Process") {
        Orm::canvas->run();
    }
    EXPECT_EQ(State::currState, G::stateProcess);
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    Orm::canvas->run();
    EXPECT_EQ(0, G::fxMicPostProc->getLastProgress());
    deliver(Orm::EV_T_SYS_PAUSE);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ(-1, G::fxMicPostProc->getLastProgress());
    EXPECT_TRUE(hasTake());
}

TEST_F(RecordingTest, twentySecondsEndTheTakeLikeStop) {
    start();
    pass(19999);
    EXPECT_EQ("Recording", screen());
    pass(1);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 160000, folders.read(kTake).size());
    EXPECT_TRUE(pending().empty());
}

TEST_F(RecordingTest, theBarIsFullAtTwentySecondsAndNoFrameFollows) {
    start();
    host.nowMs += 20000;
    Orm::unschedule(G::EV_T_TIME_OUT, nullptr);
    tick();
    EXPECT_EQ(filledAt(1024), filled());
    EXPECT_TRUE(pending().empty());
}

TEST_F(RecordingTest, aPauseDeletesTheTakeAndLeadsToTheMenu) {
    start();
    pass(2000);
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_FALSE(hasTake());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_TRUE(pending().empty());
    Orm::setPaused(false);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ("Quit", labels()[2]);
}

TEST_F(RecordingTest, theEndOfTheProgramDeletesTheTake) {
    start();
    pass(2000);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Options", screen());
    EXPECT_FALSE(hasTake());
}

TEST_F(RecordingTest, aTakeThatCannotBeDeletedAtAPauseIsFatal) {
    start();
    pass(2000);
    host.failNth("File.Remove", 1);
    Orm::setPaused(true);
    EXPECT_EQ(kFileError, fatalText());
}

TEST_F(RecordingTest, aTakeThatIsGoneAtAPauseIsNoMatter) {
    start();
    pass(2000);
    folders.remove(kTake);
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
}

TEST_F(RecordingTest, aRecorderThatWasStoppedElsewhereIsFatal) {
    start();
    pass(2000);
    AudioDev::stopRec();
    touch(kMiddle);
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(RecordingTest, aTakeThatIsGoneAtStopIsFatal) {
    start();
    pass(2000);
    folders.remove(kTake);
    touch(kMiddle);
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
    const Pixels shown = picture(0, 0, 240, SkBar::y1);
    EXPECT_TRUE(fatalPicture(3) == shown);  // no "Please wait" shines through
}

TEST_F(RecordingTest, aTakeThatCannotBeReadAtStopIsFatal) {
    start();
    pass(2000);
    host.failNth("File.Construct", 1);
    touch(kMiddle);
    EXPECT_EQ(kFileError, fatalText());
}

TEST_F(RecordingTest, aTakeThatCannotBeReadToItsEndIsFatalAndStaysAsItIs) {
    start();
    pass(2000);
    host.failNth("File.Read", 2);  // the header was the first
    touch(kMiddle);
    tick();
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_EQ(TestSounds::kHeaderBytes + 64000U, folders.read(kTake).size());
    EXPECT_EQ(TestSounds::header(32000, 16000),
              folders.read(kTake).substr(0, TestSounds::kHeaderBytes));
}

TEST_F(RecordingTest, aTakeThatDidNotFitOnTheDiskGoesOnWithWhatWasWritten) {
    start();
    host.failNth("File.Write", 2);
    pass(2000);
    touch(kMiddle);
    tick();
    EXPECT_EQ("Play", screen());
    // The first buffer, at 8 kHz.
    EXPECT_EQ(TestSounds::kHeaderBytes + 24000 / 2, folders.read(kTake).size());
}

TEST_F(RecordingTest, silenceFromAMicrophoneWithoutSamplesStillEndsAfterTwentySeconds) {
    host.ears.setVoice({});
    start();
    pass(20000);
    EXPECT_EQ("Play", screen());
}

TEST_F(RecordingTest, leavingDropsTheTimeOutAndTheFrames) {
    start();
    Orm::schedEvent(Orm::EV_T_POINTER_RELEASE, nullptr, nullptr, 70000);
    State::setState(G::stateOptions, false, false);
    EXPECT_EQ(Names{"PointerRelease@70000"}, pending());
}

TEST_F(RecordingTest, keysDoNothingWithoutALabel) {
    start();
    for (const int32_t code : {-1, -2, -3, -4, -5, -6, -7}) {
        key(code);
    }
    EXPECT_EQ("Recording", screen());
}

TEST_F(RecordingTest, hearsTheTimeOutToo) {
    EXPECT_EQ(G::eventTypesRecording, G::stateRecording->getSubscriptions());
}
