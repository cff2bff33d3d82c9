// SPDX-License-Identifier: MIT
// The screen before a recording prepares the microphone and removes the old take.
#include "AudioDev.h"
#include "G.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaTextArea.h"
#include "ScreensTest.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"

#include <unistd.h>

namespace {

class RecordTest : public ScreensTest {
protected:
    RecordTest() { makeSoundFolder(); }
};

}  // namespace

TEST_F(RecordTest, preparesTheMicrophoneAndWaitsForTheWord) {
    enter(G::stateRecord);
    EXPECT_EQ("Record", screen());
    EXPECT_EQ((Names{"-", "Record", "Back"}), labels());
    EXPECT_EQ(Str::str_START_RECORDING, Message::paTxt->getText());
    EXPECT_EQ(G::fntMedium, Message::paTxt->getFont());
    EXPECT_EQ(AudioDev::kRecordingPrepared, AudioDev::state);
    EXPECT_EQ(TestSounds::kHeaderBytes, folders.read(kTake).size());
    EXPECT_TRUE(pending().empty());
}

TEST_F(RecordTest, removesTheTakeAndTheResultOfBefore) {
    putTake({1, 2, 3});
    folders.write(kResult, "result");
    enter(G::stateRecord);
    EXPECT_EQ("Record", screen());
    EXPECT_EQ(TestSounds::kHeaderBytes, folders.read(kTake).size());
    EXPECT_FALSE(hasResult());
}

TEST_F(RecordTest, whatIsNoFileInThePlaceOfTheTwoIsMovedAside) {
    folders.write(std::string(kTake) + "/inside.txt", "mine");
    folders.write("home/Murmelo/rec_00000.wav", "a saved sound");
    ASSERT_EQ(0, symlink("rec_00000.wav", folders.path(kResult).c_str()));
    enter(G::stateRecord);
    EXPECT_EQ("Record", screen());
    EXPECT_EQ(TestSounds::kHeaderBytes, folders.read(kTake).size());
    EXPECT_FALSE(hasResult());
    EXPECT_EQ("mine", folders.read(std::string(kTake) + ".aside-1/inside.txt"));
    EXPECT_EQ("a saved sound", folders.read(std::string(kResult) + ".aside-1"));
    EXPECT_EQ("a saved sound", folders.read("home/Murmelo/rec_00000.wav"));
}

TEST_F(RecordTest, whatCannotBeMovedAsideIsFatal) {
    folders.write(std::string(kTake) + "/inside.txt", "mine");
    host.failNth("File.MoveAside", 1);
    enter(G::stateRecord);
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_EQ("mine", folders.read(std::string(kTake) + "/inside.txt"));
}

TEST_F(RecordTest, aTakeThatCannotBeRemovedIsFatal) {
    putTake({1, 2, 3});
    folders.write(kResult, "result");
    host.failNth("File.Remove", 1);
    enter(G::stateRecord);
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_TRUE(hasResult());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
}

TEST_F(RecordTest, aResultThatCannotBeRemovedIsFatal) {
    putTake({1, 2, 3});
    folders.write(kResult, "result");
    host.failNth("File.Remove", 2);
    enter(G::stateRecord);
    EXPECT_EQ(kFileError, fatalText());
    EXPECT_FALSE(hasTake());
    EXPECT_TRUE(hasResult());
}

TEST_F(RecordTest, aMicrophoneThatCannotBePreparedIsFatal) {
    host.failNth("AudioIn.Prepare", 1);
    enter(G::stateRecord);
    EXPECT_EQ(kNoAudio, fatalText());
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
}

TEST_F(RecordTest, aPhoneWithoutAMicrophoneIsFatal) {
    host.hasDevices = false;
    enter(G::stateRecord);
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(RecordTest, aTakeThatCannotBeOpenedIsFatal) {
    enter(G::stateOptions);  // loads the pictures
    host.failNth("File.Construct", 1);
    enter(G::stateRecord);
    EXPECT_EQ(kNoAudio, fatalText());
}

TEST_F(RecordTest, keysPressedMeanwhileAreForgotten) {
    State::setState(G::stateOptions, true, true);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_MSK, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_MSK, nullptr, 0);
    State::setState(G::stateRecord, false, false);
    EXPECT_TRUE(pending().empty());
}

TEST_F(RecordTest, keysPressedMeanwhileAreForgottenIfThePreparationFailsToo) {
    State::setState(G::stateOptions, true, true);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_MSK, nullptr, 50);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_MSK, nullptr, 60);
    AudioDev::state = AudioDev::kPlaying;
    G::stateRecord->onEnter();
    EXPECT_EQ(kNoAudio, fatalText());
    EXPECT_TRUE(pending().empty());  // "Ok" of the message is not pressed before it was read
    AudioDev::state = AudioDev::kReady;
}

TEST_F(RecordTest, theWordStartsTheRecording) {
    enter(G::stateRecord);
    touch(kMiddle);
    EXPECT_EQ("Recording", screen());
    EXPECT_EQ(AudioDev::kRecording, AudioDev::state);
}

TEST_F(RecordTest, theMiddleKeyStartsTheRecordingToo) {
    enter(G::stateRecord);
    key(OrmCanvas::kKeyMiddle);
    EXPECT_EQ("Recording", screen());
}

TEST_F(RecordTest, theWayBackLeavesNoTake) {
    enter(G::stateRecord);
    touch(kRight);
    EXPECT_EQ("Options", screen());
    EXPECT_FALSE(hasTake());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
}

TEST_F(RecordTest, theWayBackIsOpenEvenIfTheTakeIsGoneAlready) {
    enter(G::stateRecord);
    folders.remove(kTake);
    key(OrmCanvas::kKeyRightSoft);
    EXPECT_EQ("Options", screen());
}

TEST_F(RecordTest, aPauseGivesTheTakeUp) {
    enter(G::stateRecord);
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_FALSE(hasTake());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
}

TEST_F(RecordTest, theEndOfTheProgramGivesTheTakeUpAndStays) {
    enter(G::stateRecord);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Record", screen());
    EXPECT_FALSE(hasTake());
    EXPECT_EQ(AudioDev::kReady, AudioDev::state);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Record", screen());
}

TEST_F(RecordTest, everythingElseChangesNothing) {
    enter(G::stateRecord);
    const Pixels before = picture();
    for (const int32_t code : {-1, -2, -3, -4, -6, -9}) {
        key(code);
    }
    touch(kLeft);
    touch(120, 100);
    deliver(Orm::EV_T_UPDATE);
    deliver(Orm::EV_T_SYS_RESUME);
    EXPECT_EQ("Record", screen());
    EXPECT_EQ(before, picture());
    EXPECT_EQ(AudioDev::kRecordingPrepared, AudioDev::state);
}

TEST_F(RecordTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::stateRecord->getSubscriptions());
}
