// SPDX-License-Identifier: MIT
// What the strip shows and offers while the program changes its screens, records and saves.
#include "QuietDoors.h"
#include "Strip.h"
#include "StripLayout.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Kind = StripWish::Kind;

namespace {

class TestDoors : public QuietDoors {
public:
    TestDoors() { screen = "Play"; }

    int32_t currentEffect() override { return 3; }

    bool canSave() override { return hasTake; }

    bool saveSound() override {
        saved += hasTake ? 1 : 0;
        return hasTake;
    }

    bool canUseSound() override { return screen == "Play" || screen == "Options"; }

    bool showEffect(int32_t index) override {
        shown.push_back(index);
        return true;
    }

    std::string effectName(int32_t /*effect*/) override { return "None"; }

    int32_t savedCount() override { return saved; }

    int32_t takenCount() override { return taken; }

    std::string savedName() override { return "rec_00000.wav"; }

    bool hasTake = true;
    int32_t saved = 0;
    int32_t taken = 0;
    std::vector<int32_t> shown;
};

class TestMicrophone : public HostMicrophone {
public:
    bool isThere() override { return true; }

    std::string deviceName() override { return device; }

    bool start(HostMicrophoneListener&) override { return false; }

    void stop() override {}

    int32_t take(int16_t*, int32_t) override { return 0; }

    bool readLevel(LevelMeter::Reading& newest) override {
        newest = reading;
        return true;
    }

    HostMessage whyUnheard() override { return reason; }

    LevelMeter::Reading reading;
    HostMessage reason;
    std::string device = "Headset";
};

class StripFeedTest : public ::testing::Test {
protected:
    StripFeedTest() {
        host.mapShipped();
        strip.feed().setMicrophone(&microphone);
        strip.feed().setSoundFolder("/home/me/Music", "~/Music");
        strip.setDoors(&doors);
    }

    ~StripFeedTest() override { strip.setDoors(nullptr); }

    void go(const std::string& screen, int64_t nowMs) {
        doors.screen = screen;
        strip.look(nowMs);
    }

    std::string line() {
        std::string all;
        for (const std::string& row : strip.model().lines()) {
            all += (all.empty() ? "" : " ") + row;
        }
        return all;
    }

    /// Sets a finger down on the display and lifts it.
    bool tap(int32_t x, int32_t y) {
        const bool isPress = strip.touch(HostListener::Touch::kPress, x, y, 0);
        return strip.touch(HostListener::Touch::kRelease, x, y, 0) && isPress;
    }

    TestHost host;
    TestDoors doors;
    TestMicrophone microphone;
    Strip strip;
};

}  // namespace

TEST_F(StripFeedTest, anIdleProgramIsNotLookedAtAgain) {
    go("Play", 0);
    EXPECT_EQ(-1, strip.dueMs());
    go("Recording", 1000);
    EXPECT_EQ(1066, strip.dueMs());
    go("Play", 2000);
    strip.key(StripKey::kClose, 2000);
    EXPECT_EQ(-1, strip.dueMs());
}

TEST_F(StripFeedTest, aTakeThatWasDeletedCanBeBroughtBack) {
    strip.feed().setLastTake(true);
    go("Play", 0);
    doors.hasTake = false;
    go("Record", 1000);
    EXPECT_EQ("Headset", line());  // there is no way back from here
    go("Options", 2000);
    EXPECT_EQ("The recording is deleted.", line());
    EXPECT_EQ(Kind::kBringBack, strip.model().action().wish.kind);
    EXPECT_EQ("Bring back", strip.model().action().name);
    strip.key(StripKey::kClose, 2000);
    go("Options", 3000);
    EXPECT_EQ("", line());  // told once
}

TEST_F(StripFeedTest, aRecordingThatEndedInTheMenuCanBeBroughtBack) {
    doors.hasTake = false;
    strip.feed().setLastTake(true);
    go("Record", 0);
    go("Recording", 1000);
    microphone.reading.loudestDb = -20;
    go("Options", 2000);  // the window was hidden meanwhile
    EXPECT_EQ("The recording is deleted.", line());
    EXPECT_EQ(Kind::kBringBack, strip.model().action().wish.kind);
    strip.key(StripKey::kClose, 2000);
    go("Record", 3000);
    go("Recording", 4000);
    microphone.reading.loudestDb = -60;  // the last take is another one
    go("Options", 5000);
    EXPECT_EQ("", line());
}

TEST_F(StripFeedTest, aTakeThatIsNotKeptIsNotOffered) {
    go("Play", 0);
    doors.hasTake = false;
    go("Options", 1000);
    EXPECT_EQ("", line());
}

TEST_F(StripFeedTest, anEarlierRecordingIsNotOfferedForTheOneThatWasDeleted) {
    strip.feed().setLastTake(true, false);
    go("Play", 0);
    doors.hasTake = false;
    go("Options", 1000);
    EXPECT_EQ("", line());
    EXPECT_TRUE(strip.key(StripKey::kBringBack, 1000));  // its key still brings it back
}

TEST_F(StripFeedTest, withoutATakeAtTheStartNothingWasDeleted) {
    strip.feed().setLastTake(true);
    doors.hasTake = false;
    go("Options", 0);
    EXPECT_EQ("", line());
}

TEST_F(StripFeedTest, aSoundThatReplacesTheTakeOnPlayClosesTheSheet) {
    doors.taken = 1;  // at the start of the program
    go("Play", 0);
    strip.key(StripKey::kHelp, 0);
    go("Play", 100);
    EXPECT_EQ(StripModel::Sheet::kHelp, strip.model().sheet());
    doors.taken = 2;  // its clean-up ended before the strip looked
    go("Play", 200);
    EXPECT_EQ(StripModel::Sheet::kNone, strip.model().sheet());
}

TEST_F(StripFeedTest, theSecondsThatAreLeftAreRoundedUp) {
    go("Recording", 0);
    EXPECT_EQ(20, strip.model().secondsLeft());
    const std::vector<std::pair<int32_t, int32_t>> expected = {
        {1, 20}, {15999, 20}, {16000, 19}, {319999, 1}, {320000, 0}, {330000, 0}};
    int64_t nowMs = 0;
    for (const auto& [heard, left] : expected) {
        nowMs += 100;
        microphone.reading.heardSamples = heard;
        strip.look(nowMs);
        EXPECT_EQ(left, strip.model().secondsLeft()) << heard;
    }
}

TEST_F(StripFeedTest, silenceInThePlaceOfADeviceCountsAsTime) {
    go("Recording", 0);
    microphone.reading.silentSamples = 32000;
    strip.look(2000);
    EXPECT_EQ(18, strip.model().secondsLeft());
    EXPECT_EQ("No sound comes from “Headset”.", line());
    microphone.reading.heardSamples = 16000;
    strip.look(3000);
    EXPECT_EQ(17, strip.model().secondsLeft());
}

TEST_F(StripFeedTest, afterASecondWithoutSamplesTheMicrophoneIsNamed) {
    go("Recording", 0);
    strip.look(999);
    EXPECT_EQ("Headset", line());
    strip.look(1100);
    EXPECT_EQ("No sound comes from “Headset”.", line());
    microphone.reading.heardSamples = 160;
    strip.look(1200);
    EXPECT_EQ("Headset", line());
}

TEST_F(StripFeedTest, theReasonWhyNothingIsHeardStandsUntilADeviceDelivers) {
    microphone.reason = {"noMicrophone", {"Connection refused"}};
    microphone.reading.loudestDb = -60;
    go("Recording", 0);
    strip.look(100);
    EXPECT_EQ("No sound comes from the microphone: Connection refused", line());
    strip.look(15000);
    EXPECT_EQ("No sound comes from the microphone: Connection refused", line());
    microphone.reason = {};
    microphone.reading.heardSamples = 160;
    strip.look(15100);
    EXPECT_EQ("Headset", line());
    go("Process", 16000);
    EXPECT_EQ("I heard nothing from “Headset”.", line());
}

TEST_F(StripFeedTest, aTakeOfNoDeviceIsToldWithItsReason) {
    microphone.reason = {"microphoneUnusable", {"Headset", "Device busy"}};
    microphone.reading.loudestDb = -60;
    go("Recording", 0);
    strip.look(100);
    go("Process", 3000);
    EXPECT_EQ("No sound comes from “Headset”: Device busy", line());
    EXPECT_EQ(Kind::kMicrophones, strip.model().action().wish.kind);
    EXPECT_EQ("Choose", strip.model().action().name);
    strip.key(StripKey::kClose, 3000);
    EXPECT_EQ("", line());
    microphone.reason = {};
    go("Recording", 4000);
    strip.look(4100);
    EXPECT_EQ("Headset", line());
}

TEST_F(StripFeedTest, theMicrophoneIsNamedWhereItIsUsed) {
    EXPECT_EQ("", line());
    go("Record", 0);
    EXPECT_EQ("Headset", line());
    microphone.device = "Camera";
    strip.look(100);
    EXPECT_EQ("Headset", line());
    go("Recording", 200);
    EXPECT_EQ("Camera", line());
    microphone.device = "";
    microphone.reading.loudestDb = -60;
    go("Record", 300);
    go("Recording", 400);
    go("Process", 500);
    EXPECT_EQ("I heard nothing. Is the microphone switched off?", line());
}

TEST_F(StripFeedTest, aTakeWithoutAVoiceIsTold) {
    go("Recording", 0);
    microphone.reading.loudestDb = -51;
    go("Process", 3000);
    EXPECT_EQ("I heard nothing from “Headset”.", line());
    EXPECT_EQ(Kind::kMicrophones, strip.model().action().wish.kind);
}

TEST_F(StripFeedTest, aTakeWithAVoiceOrGivenUpIsNotTold) {
    go("Recording", 0);
    microphone.reading.loudestDb = -50;
    go("Process", 3000);
    EXPECT_EQ("", line());
    go("Recording", 4000);
    microphone.reading.loudestDb = -60;
    go("Record", 5000);
    EXPECT_EQ("Headset", line());
}

TEST_F(StripFeedTest, whatWasSavedIsToldWithItsPlace) {
    go("Play", 0);
    EXPECT_TRUE(tap(48, 126));
    EXPECT_EQ(1, doors.saved);
    strip.look(100);
    EXPECT_EQ("Saved: ~/Music/rec_00000.wav", line());
    EXPECT_EQ("/home/me/Music/rec_00000.wav", strip.model().action().wish.path);
}

TEST_F(StripFeedTest, saveSaysWhyThereIsNothingToSave) {
    doors.hasTake = false;
    EXPECT_TRUE(strip.key(StripKey::kSave, 0));
    EXPECT_EQ("There is nothing to save yet. Record something first.", line());
    strip.key(StripKey::kClose, 0);
    doors.screen = "Playing";
    EXPECT_TRUE(strip.key(StripKey::kSave, 0));
    EXPECT_EQ("You can do this in the menu and while you choose an effect.", line());
}

TEST_F(StripFeedTest, aHeadShowsItsEffect) {
    go("Play", 0);
    EXPECT_TRUE(tap(5 * 60 + 30, 64));
    EXPECT_EQ(std::vector<int32_t>{5}, doors.shown);
    EXPECT_FALSE(tap(240, 400));
}

TEST_F(StripFeedTest, aFingerThatLeavesTheStripWantsNothing) {
    go("Play", 0);
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 330, 64, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kMove, 330, 500, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 330, 500, 0));
    EXPECT_TRUE(doors.shown.empty());
    EXPECT_FALSE(strip.touch(HostListener::Touch::kPress, 330, 500, 0));
    EXPECT_FALSE(strip.touch(HostListener::Touch::kRelease, 330, 64, 0));
    EXPECT_TRUE(doors.shown.empty());
}

TEST_F(StripFeedTest, aFingerThatSlidesToAnotherButtonWantsNothing) {
    go("Play", 0);
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 48, 126, 0));  // "Save"
    EXPECT_TRUE(strip.touch(HostListener::Touch::kMove, 432, 126, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 432, 126, 0));  // "Help"
    EXPECT_EQ(0, doors.saved);
    EXPECT_EQ(StripModel::Sheet::kNone, strip.model().sheet());
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 300, 126, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 48, 150, 0));
    EXPECT_EQ(0, doors.saved);
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 20, 126, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 70, 140, 0));  // on the same button
    EXPECT_EQ(1, doors.saved);
}

TEST_F(StripFeedTest, aFingerThatLeavesAButtonOfTheSheetLeavesItOpen) {
    go("Play", 0);
    strip.key(StripKey::kHelp, 0);
    const ScreenPlace close = strip.model().buttons().back().place;
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 240, 2 * close.y + 10, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 240, 300, 0));
    EXPECT_EQ(StripModel::Sheet::kHelp, strip.model().sheet());
    EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 240, 300, 0));
    EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 240, 2 * close.y + 10, 0));
    EXPECT_EQ(StripModel::Sheet::kHelp, strip.model().sheet());
    tap(240, 300);
    EXPECT_EQ(StripModel::Sheet::kNone, strip.model().sheet());
}

TEST_F(StripFeedTest, aListThatChangesUnderTheFingerChoosesNoOtherDevice) {
    std::vector<int32_t> used;
    strip.wishes().on(Kind::kUseMicrophone,
                      [&used](const StripWish& wish) { used.push_back(wish.index); });
    go("Record", 0);
    const std::vector<std::string> names[] = {{"Headset"}, {"Camera"}};
    for (const std::vector<std::string>& after : names) {
        strip.model().setMicrophones({"Headset"}, StripWish::kSystemsChoice);
        strip.model().showMicrophones();
        const ScreenPlace second = StripLayout::choice(1);
        EXPECT_TRUE(strip.touch(HostListener::Touch::kPress, 240, 2 * second.y + 10, 0));
        strip.model().setMicrophones(after, StripWish::kSystemsChoice);
        EXPECT_TRUE(strip.touch(HostListener::Touch::kRelease, 240, 2 * second.y + 10, 0));
    }
    EXPECT_EQ(std::vector<int32_t>{0}, used);  // the second time it was another device
    EXPECT_EQ(StripModel::Sheet::kMicrophones, strip.model().sheet());
}

TEST_F(StripFeedTest, aHostFulfilsWhatItHandles) {
    std::vector<StripWish> wishes;
    strip.wishes().on(Kind::kOpen, [&wishes](const StripWish& wish) { wishes.push_back(wish); });
    go("Play", 0);
    tap(96 + 48, 126);
    EXPECT_EQ(1U, wishes.size());
    EXPECT_EQ("", line());
}

TEST_F(StripFeedTest, withoutADialogTheLineSaysToDropAFile) {
    go("Play", 0);
    tap(96 + 48, 126);
    EXPECT_EQ("This desktop offers no dialog to open files. Drop a sound file here.", line());
}

TEST_F(StripFeedTest, afterTheEndNothingIsTheStrips) {
    strip.setDoors(nullptr);
    EXPECT_FALSE(tap(48, 126));
    EXPECT_FALSE(strip.key(StripKey::kSave, 0));
}
