// SPDX-License-Identifier: MIT
// Turns, pictures, touches, keys and clips of the program in a page.
#include "ScreenNames.h"
#include "ScreenTable.h"
#include "TestSounds.h"
#include "WebHostTest.h"

#include <cstring>
#include <set>
#include <utility>

TEST_F(WebHostTest, aHiddenPageKeepsTheRecordingAndCleansItUpInTheSameCall) {
    toMenu();
    beginRecording();
    page.notes.clear();
    host->leave();
    EXPECT_EQ((Notes{"stop", "release"}), page.takeNotes());
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
    EXPECT_TRUE(folders.has("home/Murmelo/MrmLastRec.wav"));
    EXPECT_EQ(WebHost::kNever, settle());
    host->comeBack();
    settle();
    EXPECT_EQ("Play", screen());
}

TEST_F(WebHostTest, aPageThatLeavesTwiceLeavesOnce) {
    toMenu();
    beginRecording();
    host->leave();
    page.notes.clear();
    host->leave();
    settle();
    EXPECT_EQ((Notes{}), page.takeNotes());
    host->comeBack();
    host->comeBack();
    settle();
    EXPECT_EQ("Play", screen());
}

TEST_F(WebHostTest, theScreensItKnowsAreTheProgramsOwn) {
    std::set<std::string> names;
    int32_t count = 0;
    const ScreenTable::Row* rows = ScreenTable::rows(count);
    for (int32_t i = 0; i < count; i++) {
        names.insert(rows[i].name);
    }
    for (const char* known : {ScreenNames::kFirstLanguage, ScreenNames::kSplash, ScreenNames::kMenu,
                              ScreenNames::kRecording}) {
        EXPECT_EQ(1U, names.count(known)) << known;
    }
}

TEST_F(WebHostTest, aRecordingYoungerThanItsFirstBufferIsLostAndSaidSo) {
    toMenu();
    ask();
    allow();
    key(HostKey::kMiddle);
    hear(TestSounds::noise(4000));
    host->leave();
    EXPECT_EQ(word("tooShort"), line());
    EXPECT_EQ("Options", screen());
}

TEST_F(WebHostTest, aPageThatIsHiddenWhileTheUserIsAskedDoesNotLeave) {
    toMenu();
    ask();
    host->leave();
    host->comeBack();
    allow();
    EXPECT_EQ("Record", screen());
}

TEST_F(WebHostTest, aPageThatIsStillHiddenWhenTheUserHasAnsweredLeavesThen) {
    toMenu();
    ask();
    host->leave();
    EXPECT_EQ("Record", screen());
    page.notes.clear();
    allow();
    EXPECT_EQ(Notes{"release"}, page.takeNotes());
    host->comeBack();
    settle();
    EXPECT_EQ("Options", screen());
}

TEST_F(WebHostTest, aClipEndsWhenThePageSaysSo) {
    toMenu();
    record();
    key(HostKey::kMiddle);
    pass(100);
    EXPECT_EQ("Playing", screen());
    EXPECT_EQ(90, page.volume) << "as loud as the program can";
    EXPECT_EQ(folders.read("home/Murmelo/MrmLastProc.wav"),
              std::string(page.clip.begin(), page.clip.end()));
    host->clipEnded(page.clipTicket - 1);
    settle();
    EXPECT_EQ("Playing", screen()) << "the end of an earlier clip";
    host->clipEnded(page.clipTicket);
    settle();
    EXPECT_EQ("Play", screen());
}

TEST_F(WebHostTest, aPageThatCannotSetTheVolumeGetsSofterSamples) {
    toMenu();
    record();
    host->volumeStays(true);
    key(HostKey::kMiddle);
    pass(100);
    const std::string file = folders.read("home/Murmelo/MrmLastProc.wav");
    ASSERT_EQ(file.size(), page.clip.size());
    for (size_t at = TestSounds::kHeaderBytes; at < file.size(); at += 2) {
        int16_t full = 0;
        int16_t softer = 0;
        std::memcpy(&full, file.data() + at, 2);
        std::memcpy(&softer, page.clip.data() + at, 2);
        ASSERT_EQ(full * 90 / 100, softer) << at;
    }
}

TEST_F(WebHostTest, keysAreKnownByTheNamesThatBrowsersGiveThem) {
    toMenu();
    for (const char* other : {"x", "Tab", "F5", "", "enter"}) {
        EXPECT_FALSE(host->keyNamed(other)) << other;
    }
    EXPECT_TRUE(host->keyNamed("a"));
    record();
    const int32_t effect = host->doorsInUse()->currentEffect();
    EXPECT_TRUE(host->keyNamed("ArrowRight"));
    pass(1000);
    EXPECT_EQ(effect + 1, host->doorsInUse()->currentEffect());
    EXPECT_TRUE(host->keyNamed("ArrowLeft"));
    pass(1000);
    EXPECT_EQ(effect, host->doorsInUse()->currentEffect());
    EXPECT_TRUE(host->keyNamed("F1"));
    pass(1000);
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(host->keyNamed("ArrowDown"));
    EXPECT_TRUE(host->keyNamed("ArrowUp"));
    EXPECT_TRUE(host->keyNamed("Enter"));
    settle();
    EXPECT_EQ("Record", screen());
    allow();
    EXPECT_TRUE(host->keyNamed("F2"));
    settle();
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(host->keyNamed("+"));
    EXPECT_TRUE(host->keyNamed("-"));
    EXPECT_EQ(word("takeGone"), line());
    EXPECT_TRUE(host->keyNamed("Escape"));
    EXPECT_EQ("", line());
    EXPECT_FALSE(host->keyNamed("Escape")) << "it never ends the program";
    EXPECT_TRUE(host->keyNamed("F2"));
    EXPECT_EQ(WebHost::kEnded, settle());
}

TEST_F(WebHostTest, aKeyLeadsToARecordingAndEscapeOutOfIt) {
    toMenu();
    EXPECT_TRUE(host->keyNamed("r"));
    settle();
    ASSERT_EQ("Record", screen());
    allow();
    EXPECT_EQ("Recording", screen());
    hear(voice);
    pass(100);
    EXPECT_TRUE(host->keyNamed("Escape"));
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(host->keyNamed("4"));
    pass(1000);
    EXPECT_EQ(3, host->doorsInUse()->currentEffect());
}

TEST_F(WebHostTest, theProgramTellsTheNamesOfItsEffects) {
    toMenu();
    HostDoors* const doors = host->doorsInUse();
    EXPECT_EQ("No effect", doors->effectName(0));
    EXPECT_EQ("Robot", doors->effectName(1));
    EXPECT_EQ("", doors->effectName(-1));
    EXPECT_EQ("", doors->effectName(8));
}

TEST_F(WebHostTest, aClipThatCannotBePlayedEndsToo) {
    toMenu();
    record();
    key(HostKey::kMiddle);
    pass(100);
    page.notes.clear();
    host->clipFailed(page.clipTicket);
    settle();
    EXPECT_EQ("Play", screen());
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("cannotPlay"), line());
}

TEST_F(WebHostTest, anIdleProgramWantsNoTurn) {
    toMenu();
    EXPECT_EQ(WebHost::kNever, settle());
    host->paint();
    const int32_t frames = page.frames;
    EXPECT_EQ(WebHost::kNever, host->turn());
    EXPECT_EQ(frames, page.frames);
}

TEST_F(WebHostTest, aWaitingProgramWantsItsTurnWhenItIsDue) {
    const double ms = settle();
    EXPECT_EQ("Splash", screen());
    EXPECT_GT(ms, 0);
    EXPECT_LE(ms, 3000);
    page.clockMs += ms;
    settle();
    EXPECT_EQ("Options", screen());
}

TEST_F(WebHostTest, noStepBeginsAfterEightMilliseconds) {
    toMenu();
    host->use(TestSounds::noise(320000));
    settle();
    key(HostKey::kRight);
    pass(1000);
    page.realStepMs = 3;  // each look at the clock
    host->key(HostKey::kMiddle);
    int32_t turns = 0;
    while (host->turn() == 0) {
        turns++;
    }
    EXPECT_GT(turns, 100) << "the robot's hundreds of steps give way again and again";
    EXPECT_EQ("Playing", screen());
}

TEST_F(WebHostTest, touchesReachTheProgramAndADoubleTapPressesOneKey) {
    toMenu();
    const auto tap = [&](uint32_t timeMs) {
        host->touch(HostListener::Touch::kPress, true, 5, 240, 770, timeMs);
        host->touch(HostListener::Touch::kRelease, true, 5, 240, 770, timeMs + 50);
        settle();
    };
    tap(10000);
    EXPECT_EQ("Record", screen());
    allow();
    tap(10300);
    EXPECT_EQ("Record", screen()) << "the second tap was meant for the menu";
    tap(11000);
    EXPECT_EQ("Recording", screen());
}

TEST_F(WebHostTest, aTouchThatTheBrowserTakesAwayPressesNothing) {
    toMenu();
    for (const auto& [x, y] : {std::pair{240, 770}, {440, 780}, {240, 368}}) {
        host->touch(HostListener::Touch::kPress, true, 5, x, y, 10000);
        host->touchCancelled(true, 5);
        pass(1000);
        EXPECT_EQ("Options", screen()) << x << ", " << y;
    }
    host->touch(HostListener::Touch::kPress, true, 6, 240, 770, 20000);
    host->touch(HostListener::Touch::kRelease, true, 6, 240, 770, 20050);
    settle();
    EXPECT_EQ("Record", screen()) << "the next finger counts";
}

TEST_F(WebHostTest, aFingerWhoseEndIsNotToldHoldsNothingAfterThePageWasHidden) {
    toMenu();
    host->touch(HostListener::Touch::kPress, true, 5, 240, 770, 10000);
    settle();
    host->leave();
    host->comeBack();
    settle();
    EXPECT_EQ("Options", screen());
    host->touch(HostListener::Touch::kPress, true, 6, 240, 770, 20000);
    host->touch(HostListener::Touch::kRelease, true, 6, 240, 770, 20050);
    settle();
    EXPECT_EQ("Record", screen());
}

TEST_F(WebHostTest, theEndIsToldOnceAndNothingHappensAfterwards) {
    toMenu();
    host->key(HostKey::kRightSoft);
    EXPECT_EQ(WebHost::kEnded, settle());
    EXPECT_EQ(nullptr, host->doorsInUse());
    host->key(HostKey::kMiddle);
    host->keyNamed("s");
    EXPECT_EQ(WebHost::kEnded, host->turn());
    host->leave();
    EXPECT_EQ(WebHost::kEnded, host->turn());
}

TEST_F(WebHostTest, thePictureIsTheCanvasAndOnlyChangedRowsAreWorkedOut) {
    toMenu();
    WebPicture::Rows rows = host->paint();
    EXPECT_EQ(0, rows.first);
    EXPECT_EQ(399, rows.last);
    rows = host->paint();
    EXPECT_LT(rows.last, rows.first) << "nothing has changed";
    const uint8_t* pixels = host->picture().bytes();
    for (int32_t i = 0; i < 240 * 400; i++) {
        ASSERT_EQ(255, pixels[4 * i + 3]);
    }
    key(HostKey::kDown);
    rows = host->paint();
    EXPECT_GT(rows.first, 140);
    EXPECT_LT(rows.last, 368) << "the menu moved its focus";
}
