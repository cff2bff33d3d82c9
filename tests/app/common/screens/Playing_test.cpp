// SPDX-License-Identifier: MIT
// A result is played to its end or stopped, and every failure of the speaker is reported.
#include "AppImage.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "Orm.h"
#include "PaImage.h"
#include "ScreensTest.h"
#include "State.h"
#include "TestSounds.h"

#include <sys/stat.h>

namespace {

class PlayingTest : public ScreensTest {
protected:
    PlayingTest() {
        makeSoundFolder();
        folders.write(kResult, TestSounds::wav(TestSounds::noise(8000), 8000));  // one second
        State::setState(G::statePlay, true, true);
    }

    static void start() { State::setState(G::statePlaying, true, true); }
};

}  // namespace

TEST_F(PlayingTest, playsTheResultAndOffersStop) {
    start();
    EXPECT_EQ("Playing", screen());
    EXPECT_EQ(AudioDev::kPlaying, AudioDev::state);
    EXPECT_EQ((Names{"-", "Stop", "-"}), labels());
    EXPECT_FALSE(Header::arrows);
    EXPECT_TRUE(Header::fxName);
    EXPECT_EQ(Names{"Update@10"}, pending());
    const Pixels upper = picture(0, 0, 240, 288);
    Main::paintBgAndFx();
    Header::paint(false);
    EXPECT_EQ(picture(0, 0, 240, 288), upper);
}

TEST_F(PlayingTest, aResultThatIsGoneIsFatal) {
    folders.remove(kResult);
    start();
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
}

TEST_F(PlayingTest, aPlayerThatDoesNotPlayIsFatal) {
    for (const char* operation :
         {"Player.Construct", "Player.OpenFile", "Player.SetVolume", "Player.Play"}) {
        State::setState(G::statePlay, true, true);
        host.failNth(operation, 1);
        start();
        EXPECT_EQ(kNoAudio, fatalText()) << operation;
        EXPECT_TRUE(pending().empty());
    }
}

TEST_F(PlayingTest, aResultThatIsNoSoundIsFatal) {
    folders.write(kResult, "no sound at all");
    start();
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(PlayingTest, aResultThatCannotBeReadOrMeasuredCountsAsASpeakerThatFails) {
    for (const char* operation : {"File.Construct", "File.Seek", "File.Read"}) {
        State::setState(G::statePlay, true, true);
        host.failNth(operation, 1);
        start();
        EXPECT_EQ(kNoAudio, fatalText()) << operation;
    }
    folders.remove(kResult);
    folders.makeFolder(kResult);
    State::setState(G::statePlay, true, true);
    start();
    EXPECT_EQ(kNoAudio, fatalText());
    folders.remove(kResult);
    ASSERT_EQ(0, mkfifo(folders.path(kResult).c_str(), 0600));
    State::setState(G::statePlay, true, true);
    start();
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(PlayingTest, aPhoneWithoutASpeakerIsFatal) {
    host.hasDevices = false;
    start();
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(PlayingTest, theEndOfTheClipLeadsBack) {
    start();
    pass(999);
    EXPECT_EQ("Playing", screen());
    pass(1);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_TRUE(pending().empty());
}

TEST_F(PlayingTest, stopLeadsBackBefore) {
    start();
    pass(300);
    touch(kMiddle);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    pass(2000);
    EXPECT_EQ("Play", screen());
}

TEST_F(PlayingTest, aPauseLeadsBack) {
    start();
    pass(300);
    Orm::setPaused(true);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
}

TEST_F(PlayingTest, theEndOfTheProgramStopsThePlayer) {
    start();
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
}

TEST_F(PlayingTest, theWheelsTurnWithThePlayKeyDownAndTheLightStays) {
    PaImage* const phases[] = {nullptr,       G::piWheels15, G::piWheels30,
                               G::piWheels45, G::piWheels60, G::piWheels75};
    Bounds window(176, 179, 64, 32);
    start();
    const Pixels left = picture(0, 26, 150, 262);
    for (int32_t frame = 0; frame < 40; frame++) {
        AppImage expected(G::scr);
        G::piBg->paintOn(&expected, 0, 0, &window, nullptr);
        if (phases[frame % 6] != nullptr) {
            phases[frame % 6]->paintOn(&expected, 0, 0, G::scrB, nullptr);
        }
        G::piButtonsPlay->paintOn(&expected, 0, 0, G::scrB, nullptr);
        pass(10);
        EXPECT_EQ(Names{"Update@10"}, pending());
        ASSERT_EQ(Pixels(expected.pixels.get(), expected.pixels + 240 * 320), picture()) << frame;
    }
    EXPECT_EQ(left, picture(0, 26, 150, 262));
}

TEST_F(PlayingTest, theWheelsGoOnFromWhereTheyStood) {
    Pixels phases[3];
    start();
    pass(20);  // two frames
    phases[0] = picture(176, 179, 64, 32);
    touch(kMiddle);
    start();
    pass(10);
    phases[1] = picture(176, 179, 64, 32);
    EXPECT_TRUE(phases[0] != phases[1]);  // the third phase, not the first
    pass(50);
    phases[2] = picture(176, 179, 64, 32);
    EXPECT_TRUE(phases[0] == phases[2]);  // six frames after the second
}

TEST_F(PlayingTest, aClipOfMoreThanSevenSecondsPlaysToItsEnd) {
    folders.write(kResult, TestSounds::wav(TestSounds::noise(8 * 8000), 8000));
    start();
    pass(7999);
    EXPECT_EQ("Playing", screen());
    pass(1);
    EXPECT_EQ("Play", screen());
}

TEST_F(PlayingTest, aClipWithoutSamplesEndsAtOnce) {
    folders.write(kResult, TestSounds::wav({}, 8000));
    start();
    pass(20);
    EXPECT_EQ("Play", screen());
}

TEST_F(PlayingTest, leavingDropsTheEndOfTheClipAndTheFrames) {
    start();
    Orm::schedEvent(G::EV_T_END_OF_MEDIA, nullptr, nullptr, 0);
    State::setState(G::stateOptions, false, false);
    EXPECT_TRUE(pending().empty());
    AudioDev::stopPlay();
}

TEST_F(PlayingTest, keysWithoutALabelDoNothing) {
    start();
    for (const int32_t code : {-1, -2, -3, -4, -6, -7, -9}) {
        key(code);
    }
    touch(kLeft);
    touch(kRight);
    touch(120, 100);
    EXPECT_EQ("Playing", screen());
    EXPECT_EQ(0, G::getCurrFx());
}

TEST_F(PlayingTest, hearsTheEndOfTheClipToo) {
    EXPECT_EQ(G::eventTypesPlaying, G::statePlaying->getSubscriptions());
}
