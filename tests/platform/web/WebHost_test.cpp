// SPDX-License-Identifier: MIT
// The whole program in a page that a test plays.
#include "FakePage.h"
#include "HostWords.h"
#include "OspProgram.h"
#include "ScreenNames.h"
#include "ScreenTable.h"
#include "StripLayout.h"
#include "TestFolders.h"
#include "TestSounds.h"
#include "WebHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>

using Notes = std::vector<std::string>;
using Samples = TestSounds::Samples;

namespace {

class WebHostTest : public testing::Test {
protected:
    WebHostTest() {
        folders.write("config/settings", "lang=0\n");
        HostFolders mapped;
        mapped.res = MURMELO_SOURCE_DIR "/res/Res";
        mapped.framework = MURMELO_SOURCE_DIR "/res/framework";
        mapped.home = folders.path("home");
        folders.makeFolder("home");
        mapped.config = folders.path("config");
        host = std::make_unique<WebHost>(page, mapped);
        EXPECT_TRUE(host->begin(std::make_unique<OspProgram>()));
        settle();
    }

    std::string screen() const {
        return host->doorsInUse() != nullptr ? host->doorsInUse()->screenName() : "";
    }

    /// Turns until the program sleeps. @returns for how long
    double settle() {
        double ms = 0;
        do {
            ms = host->turn();
        } while (ms == 0);
        return ms;
    }

    /// Time passes, and the program gets its turns when it wants them.
    void pass(double ms) {
        const double endMs = page.clockMs + ms;
        for (double wait = settle(); wait >= 0 && page.clockMs + wait <= endMs; wait = settle()) {
            page.clockMs += wait;
        }
        page.clockMs = std::max(page.clockMs, endMs);
        settle();
    }

    /// The strip's line.
    std::string line() {
        std::string all;
        for (const std::string& row : host->strip().strip().model().lines()) {
            all += (all.empty() ? "" : " ") + row;
        }
        return all;
    }

    static std::string word(const char* name) { return HostWords::text(name, "en"); }

    void key(HostKey key) {
        host->key(key);
        settle();
    }

    void toMenu() {
        pass(4000);
        ASSERT_EQ("Options", screen());
    }

    void hear(const Samples& samples) {
        std::vector<float> floats(samples.size());
        for (size_t i = 0; i < samples.size(); i++) {
            floats[i] = static_cast<float>(samples[i]) / 32768.0F;
        }
        host->heard(floats.data(), static_cast<int32_t>(floats.size()), 16000);
        settle();
    }

    /// In pixels of the program, on the strip or on its sheet.
    void tapStrip(int32_t x, int32_t y) {
        page.clockMs += 1000;
        for (const auto touch : {HostListener::Touch::kPress, HostListener::Touch::kRelease}) {
            host->touch(touch, true, 5, 2 * x, 2 * y, static_cast<uint32_t>(page.clockMs));
        }
        settle();
    }

    /// From the menu to the screen that offers "Record".
    void ask() {
        key(HostKey::kMiddle);
        ASSERT_EQ("Record", screen());
    }

    void allow() {
        host->microphoneAnswered(page.askedTicket, "", 16000);
        settle();
    }

    /// From the menu into a recording that offers "Stop".
    void beginRecording() {
        ask();
        allow();
        key(HostKey::kMiddle);
        ASSERT_EQ("Recording", screen());
        hear(voice);
        pass(100);
    }

    void record() {
        beginRecording();
        key(HostKey::kMiddle);
        pass(100);
        ASSERT_EQ("Play", screen());
    }

    TestFolders folders;
    FakePage page;
    std::unique_ptr<WebHost> host;
    Samples voice = TestSounds::noise(16000);
};

}  // namespace

TEST_F(WebHostTest, asksForTheMicrophoneOnlyWhenARecordingIsOffered) {
    toMenu();
    EXPECT_EQ((Notes{}), page.takeNotes());
    ask();
    EXPECT_EQ((Notes{"ask"}), page.takeNotes());
}

TEST_F(WebHostTest, standsStillWhileTheUserIsAsked) {
    toMenu();
    ask();
    EXPECT_EQ(WebHost::kNever, host->turn());
    host->key(HostKey::kRightSoft);
    page.clockMs += 100000;
    EXPECT_EQ(WebHost::kNever, host->turn());
    EXPECT_EQ("Record", screen());
    allow();
    EXPECT_EQ("Options", screen()) << "the key that came meanwhile is not lost";
}

TEST_F(WebHostTest, aRefusalLeadsBackToTheMenu) {
    toMenu();
    ask();
    host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0);
    settle();
    EXPECT_EQ("Options", screen());
    EXPECT_EQ((Notes{"ask", "release"}), page.takeNotes());
    EXPECT_EQ(word("microphoneRefused"), line());
    EXPECT_EQ(0, page.takesKept);
}

TEST_F(WebHostTest, anAnswerToAnEarlierQuestionIsDropped) {
    toMenu();
    ask();
    const int32_t earlier = page.askedTicket;
    host->microphoneAnswered(earlier, "NotAllowedError", 0);
    settle();
    ask();
    host->microphoneAnswered(earlier, "NotAllowedError", 0);
    EXPECT_EQ(WebHost::kNever, host->turn());
    EXPECT_EQ("Record", screen());
}

TEST_F(WebHostTest, aRefusalBringsTheEarlierTakeBackBitForBit) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    EXPECT_NE(cleaned, folders.read("home/Murmelo/MrmLastRec.wav")) << "the take is deleted";
    host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0);
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(cleaned, folders.read("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(WebHostTest, aTakeThatEndedSomeFramesLateComesBackBitForBit) {
    voice = TestSounds::noise(321600);  // 20.1 s
    toMenu();
    ask();
    allow();
    key(HostKey::kMiddle);
    ASSERT_EQ("Recording", screen());
    hear(voice);
    pass(21000);
    ASSERT_EQ("Play", screen());
    ASSERT_GT(page.keptTake.size(), 320000U) << "longer than what an opened sound is cut to";
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0);
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(cleaned == folders.read("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(WebHostTest, aRefusalForgetsWhatWasPressedMeanwhile) {
    toMenu();
    ask();
    host->key(HostKey::kRightSoft);
    host->key(HostKey::kRightSoft);
    host->key(HostKey::kMiddle);
    host->touch(HostListener::Touch::kPress, false, 1, 440, 780, 5000);
    host->touch(HostListener::Touch::kRelease, false, 1, 440, 780, 5000);
    host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0);
    settle();
    EXPECT_EQ("Options", screen());
}

TEST_F(WebHostTest, aRecordingThatHeardNothingBringsTheEarlierTakeBack) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    allow();
    key(HostKey::kMiddle);
    ASSERT_EQ("Recording", screen());
    pass(21000);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(cleaned == folders.read("home/Murmelo/MrmLastRec.wav"));
    EXPECT_EQ(voice, page.keptTake);
}

TEST_F(WebHostTest, aRecordingThatIsHiddenTooEarlyBringsTheEarlierTakeBack) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    allow();
    key(HostKey::kMiddle);
    page.notes.clear();
    host->leave();
    EXPECT_EQ(word("tooShort"), line());
    host->comeBack();
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(cleaned == folders.read("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(WebHostTest, theRawTakeIsKeptWhenTheRecorderStops) {
    toMenu();
    record();
    EXPECT_EQ(voice, page.keptTake);
    EXPECT_EQ(1, page.takesKept);
    EXPECT_EQ((Notes{"ask", "start", "stop", "release"}), page.takeNotes());
}

TEST_F(WebHostTest, aTakeThatIsBroughtBackMakesTheSameFile) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    allow();
    key(HostKey::kRightSoft);
    EXPECT_FALSE(folders.has("home/Murmelo/MrmLastRec.wav"));
    host->use(page.keptTake);
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(cleaned, folders.read("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(WebHostTest, aSoundWaitsUntilTheProgramRests) {
    host->use(voice);
    settle();
    EXPECT_EQ("Splash", screen());
    pass(4000);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
}

TEST_F(WebHostTest, whatIsToldOfASoundIsToldWhenItIsTheTake) {
    host->use(voice, {"firstSeconds", {"talk.mp3"}});
    settle();
    EXPECT_EQ("", line());
    pass(4000);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ("The first 20 seconds of talk.mp3", line());
}

TEST_F(WebHostTest, aSoundDoesNotTakeThePlaceOfARunningRecording) {
    toMenu();
    beginRecording();
    page.notes.clear();
    host->use(TestSounds::noise(5000, 7));
    settle();
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("notNow"), line());
    EXPECT_EQ("Recording", screen());
    key(HostKey::kMiddle);
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
}

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

TEST_F(WebHostTest, aMicrophoneThatDiesKeepsWhatItHeard) {
    toMenu();
    beginRecording();
    host->microphoneLost();
    pass(1000);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
}

TEST_F(WebHostTest, aLossIsToldInWords) {
    toMenu();
    beginRecording();
    page.notes.clear();
    host->microphoneLost();
    pass(1000);
    EXPECT_EQ((Notes{"stop", "release"}), page.takeNotes());
    EXPECT_EQ(word("microphoneGone"), line());
}

TEST_F(WebHostTest, everyErrorOfTheBrowserHasItsWords) {
    const std::pair<const char*, const char*> kErrors[] = {
        {"NotAllowedError", "microphoneRefused"}, {"SecurityError", "microphoneRefused"},
        {"NotFoundError", "microphoneMissing"},   {"OverconstrainedError", "microphoneMissing"},
        {"InsecureError", "microphoneInsecure"},  {"NotReadableError", "microphoneBusy"},
        {"AbortError", "microphoneBusy"},         {"AnotherError", "microphoneBusy"},
    };
    toMenu();
    for (const auto& [error, wanted] : kErrors) {
        page.notes.clear();
        ask();
        host->microphoneAnswered(page.askedTicket, error, 0);
        settle();
        EXPECT_EQ("Options", screen()) << error;
        EXPECT_EQ((Notes{"ask", "release"}), page.takeNotes());
        EXPECT_EQ(WebHostTest::word(wanted), line());
        pass(20000);  // what was told is over
    }
}

TEST_F(WebHostTest, aRateThatCannotBeConvertedIsToldAndNothingIsRecorded) {
    toMenu();
    for (const int32_t rateHz : {0, 7999, 192001, 384000}) {
        page.notes.clear();
        ask();
        host->microphoneAnswered(page.askedTicket, "", rateHz);
        settle();
        EXPECT_EQ("Options", screen()) << rateHz;
        EXPECT_EQ((Notes{"ask", "release"}), page.takeNotes());
        EXPECT_EQ(word("microphoneRate"), line());
    }
    ask();
    allow();
    key(HostKey::kMiddle);
    const std::vector<float> samples(1000);
    EXPECT_FALSE(host->heard(samples.data(), 1000, 384000));
}

TEST_F(WebHostTest, aMicrophoneThatDiesBeforeTheRecordingGoesBackWithTheEarlierTake) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    allow();
    page.notes.clear();
    host->microphoneLost();
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(cleaned == folders.read("home/Murmelo/MrmLastRec.wav"));
    EXPECT_EQ((Notes{"release"}), page.takeNotes());
    EXPECT_EQ(word("microphoneGoneEmpty"), line());
    host->microphoneLost();
    pass(100);
    EXPECT_EQ("Play", screen()) << "what is told after it was given back means nothing";
    EXPECT_EQ((Notes{}), page.takeNotes());
}

TEST_F(WebHostTest, samplesThatStopComingEndTheRecordingAndKeepIt) {
    toMenu();
    beginRecording();
    pass(800);
    hear(voice);
    page.notes.clear();
    pass(990);
    EXPECT_EQ("Recording", screen());
    EXPECT_EQ((Notes{}), page.takeNotes());
    pass(300);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ((Notes{"stop", "release"}), page.takeNotes());
    EXPECT_EQ(word("microphoneGone"), line());
    EXPECT_EQ(2 * voice.size(), page.keptTake.size());
}

TEST_F(WebHostTest, samplesThatCameWhileThePageWasBusyAreNotMissed) {
    toMenu();
    beginRecording();
    page.notes.clear();
    page.clockMs += 5000;  // nothing of the page ran
    settle();
    hear(voice);
    pass(900);
    EXPECT_EQ("Recording", screen());
    EXPECT_EQ((Notes{}), page.takeNotes());
}

TEST_F(WebHostTest, aMicrophoneThatIsSilentFromTheStartIsToldOnceAndMaySpeakLater) {
    toMenu();
    ask();
    allow();
    key(HostKey::kMiddle);
    page.notes.clear();
    pass(950);
    EXPECT_EQ((Notes{}), page.takeNotes());
    pass(3000);
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("microphoneSilent"), line());
    EXPECT_EQ("Recording", screen());
    hear(voice);
    pass(100);
    key(HostKey::kMiddle);
    pass(100);
    EXPECT_EQ(voice, page.keptTake);
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
    for (size_t at = 44; at < file.size(); at += 2) {
        int16_t full = 0;
        int16_t softer = 0;
        std::memcpy(&full, file.data() + at, 2);
        std::memcpy(&softer, page.clip.data() + at, 2);
        ASSERT_EQ(full * 90 / 100, softer) << at;
    }
}

TEST_F(WebHostTest, keysAreKnownByTheNamesThatBrowsersGiveThem) {
    toMenu();
    for (const char* other : {"a", "Tab", "F5", "", "enter"}) {
        EXPECT_FALSE(host->keyNamed(other)) << other;
    }
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

TEST_F(WebHostTest, aSavedSoundIsToldWithItsEffect) {
    toMenu();
    record();
    key(HostKey::kRight);
    pass(1000);
    host->keyNamed("s");
    pass(100);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(Notes{folders.path("home/Murmelo/rec_00000.wav") + " 1"}, page.keptFiles);
}

TEST_F(WebHostTest, whatCannotBeSavedIsTold) {
    toMenu();
    host->keyNamed("s");
    settle();
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("nothingToSave"), line());
    record();
    key(HostKey::kMiddle);
    pass(100);
    page.notes.clear();
    host->keyNamed("s");
    settle();
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("notNow"), line());
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

TEST_F(WebHostTest, aTouchThatTheBrowserTakesAwayClosesNoHelpAndNoMessage) {
    toMenu();
    tapStrip(4 * 48 + 24, 60);
    const StripModel& model = host->strip().strip().model();
    ASSERT_EQ(StripModel::Sheet::kHelp, model.sheet());
    host->touch(HostListener::Touch::kPress, true, 5, 240, 400, 10000);
    host->touchCancelled(true, 5);
    settle();
    EXPECT_EQ(StripModel::Sheet::kHelp, model.sheet());
    tapStrip(120, 200);
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet()) << "the next finger counts";
    host->strip().tell("A message.", "", 0);
    host->touch(HostListener::Touch::kPress, true, 5, 100, 10, 20000);
    host->touchCancelled(true, 5);
    settle();
    EXPECT_EQ("A message.", line());
    tapStrip(50, 5);
    EXPECT_NE("A message.", line());
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

TEST_F(WebHostTest, theHelpForFingersNamesNoKeys) {
    toMenu();
    const StripModel& model = host->strip().strip().model();
    for (const bool only : {false, true}) {
        host->fingersOnly(only);
        tapStrip(4 * 48 + 24, 60);
        std::string all;
        for (const std::string& row : model.sheetRows()) {
            all += row + " ";
        }
        EXPECT_EQ(only, all.find("Swipe") != std::string::npos) << all;
        EXPECT_EQ(only, all.find("Esc ") == std::string::npos) << all;
        tapStrip(120, 200);
    }
}

TEST_F(WebHostTest, aTapOnAHeadGoesToThatEffect) {
    toMenu();
    record();
    tapStrip(5 * 30 + 15, 30);
    pass(1000);
    EXPECT_EQ(5, host->doorsInUse()->currentEffect());
}

TEST_F(WebHostTest, theButtonsOfTheStripReachThePageInTheSameTurn) {
    toMenu();
    page.notes.clear();
    tapStrip(48 + 24, 60);
    tapStrip(2 * 48 + 24, 60);
    tapStrip(3 * 48 + 24, 60);
    EXPECT_EQ((Notes{"pick a file", "list microphones", "show the sounds"}), page.takeNotes());
    beginRecording();
    page.notes.clear();
    tapStrip(48 + 24, 60);
    EXPECT_EQ((Notes{}), page.takeNotes());
    EXPECT_EQ(word("notNow"), line());
}

TEST_F(WebHostTest, theHelpLiesOverThePictureWhichGetsNoKeys) {
    toMenu();
    tapStrip(4 * 48 + 24, 60);
    const StripModel& model = host->strip().strip().model();
    ASSERT_EQ(StripModel::Sheet::kHelp, model.sheet());
    host->keyNamed("Enter");
    settle();
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(host->keyNamed("Escape"));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    EXPECT_EQ("Options", screen());
}

TEST_F(WebHostTest, theLevelIsShownWhileRecordingAndNothingIsDueAfterwards) {
    toMenu();
    beginRecording();
    const StripModel& model = host->strip().strip().model();
    hear(voice);
    pass(100);
    EXPECT_TRUE(model.showsLevel());
    EXPECT_EQ(19, model.secondsLeft());
    EXPECT_GT(model.level().peakDb, -20);
    EXPECT_LE(settle(), 66);
    key(HostKey::kMiddle);
    pass(100);
    EXPECT_EQ(WebHost::kNever, settle());
}

TEST_F(WebHostTest, aMessageEndsAndDoesNotWhileThePageIsHidden) {
    toMenu();
    host->strip().tell("deleted", "Undo", 7);
    EXPECT_EQ(10000, settle());
    pass(4000);
    host->leave();
    EXPECT_EQ(WebHost::kNever, settle());
    page.clockMs += 100000;
    host->comeBack();
    EXPECT_EQ(6000, settle());
    EXPECT_EQ("deleted", line());
    pass(6000);
    EXPECT_EQ("", line());
    EXPECT_EQ(WebHost::kNever, settle());
}

TEST_F(WebHostTest, theActionOfAMessageIsThePages) {
    toMenu();
    host->strip().tell("Deleted", "Undo", 7);
    const ScreenPlace place = host->strip().strip().model().action().place;
    page.notes.clear();
    tapStrip(place.x + place.w / 2, place.y + place.h / 2);
    EXPECT_EQ((Notes{"act 7"}), page.takeNotes());
    EXPECT_EQ("", line());
}

TEST_F(WebHostTest, theReminderGoesWithTheAnswer) {
    toMenu();
    ask();
    host->remindToAllow();
    EXPECT_EQ(word("allowMicrophone"), line());
    allow();
    EXPECT_EQ("", line());
}

TEST_F(WebHostTest, theChosenMicrophoneIsRememberedAndMissed) {
    toMenu();
    host->strip().listMicrophones({"Headset", "Built-in"});
    tapStrip(100, 80 + 34 + 2 * 25 + 10);  // the system's choice stands first
    EXPECT_EQ("Built-in", host->strip().chosenMicrophone());
    EXPECT_EQ("Built-in", folders.read("config/microphone"));
    EXPECT_EQ(folders.path("config/microphone") + " 0", page.keptFiles.back());
    pass(20000);
    ask();
    host->microphoneAnswered(page.askedTicket, "", 16000, "Headset");
    settle();
    EXPECT_EQ("“Built-in” is not there. Another microphone is used.", line());
    pass(20000);
    EXPECT_EQ("Headset", line()) << "the name of the one that hears";
    key(HostKey::kRightSoft);
    host->strip().listMicrophones({"Headset"});
    tapStrip(100, 80 + 34 + 10);
    EXPECT_EQ("", host->strip().chosenMicrophone());
}

TEST_F(WebHostTest, controlAndZBringTheLastTakeBack) {
    host->rememberTake(voice);
    toMenu();
    EXPECT_TRUE(host->keyNamed("Control+z"));
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
}

TEST_F(WebHostTest, whereThereIsNoLastTakeOrNoWayToItThatIsTold) {
    toMenu();
    EXPECT_TRUE(host->keyNamed("Control+z"));
    settle();
    EXPECT_EQ(word("noLastTake"), line());
    EXPECT_EQ("Options", screen());
    host->rememberTake(voice);
    ask();
    allow();
    EXPECT_TRUE(host->keyNamed("Control+z"));
    pass(5000);
    EXPECT_EQ(word("notNow"), line());
    EXPECT_EQ("Record", screen());
}

TEST_F(WebHostTest, controlAndSSaveAndWhatIsTheBrowsersStaysIts) {
    toMenu();
    record();
    for (const char* others : {"Control+S", "Control+q", "Control+w", "Control+0", "Control++",
                               "Control+r", "Control+Enter", "F11", "F12"}) {
        EXPECT_FALSE(host->keyNamed(others)) << others;
    }
    EXPECT_TRUE(host->keyNamed("Control+o"));
    EXPECT_TRUE(host->keyNamed("Control+s"));
    page.notes.clear();
    pass(100);
    EXPECT_EQ((Notes{"pick a file"}), page.takeNotes());
    EXPECT_EQ("Save", screen());
}

TEST_F(WebHostTest, aTakeThatIsDeletedIsToldWithTheWayBack) {
    toMenu();
    record();
    key(HostKey::kLeftSoft);
    EXPECT_EQ("", line());
    ask();
    allow();
    key(HostKey::kRightSoft);
    ASSERT_EQ("Options", screen());
    EXPECT_EQ(word("takeGone"), line());
    const ScreenPlace place = host->strip().strip().model().action().place;
    tapStrip(place.x + place.w / 2, place.y + place.h / 2);
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(voice, page.keptTake);
    EXPECT_EQ(word("takeIsBack"), line());
    pass(7000);  // the message has ended
    host->rememberTake({});
    key(HostKey::kLeftSoft);
    ask();
    allow();
    key(HostKey::kRightSoft);
    ASSERT_EQ("Options", screen());
    EXPECT_EQ("", line()) << "it was forgotten: there is no way back";
}

TEST_F(WebHostTest, aTakeThatComesBackByItselfIsNotToldAsDeleted) {
    toMenu();
    record();
    key(HostKey::kLeftSoft);
    ask();
    host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0);
    page.realStepMs = 9;  // each turn ends after one step
    while (screen() != "Play") {
        host->turn();
        host->paint();
        page.clockMs += 10;
    }
    page.realStepMs = 0;
    pass(3000);  // a second message waits for two seconds
    EXPECT_EQ(word("microphoneRefused"), line());
}

TEST_F(WebHostTest, everySentenceFitsIntoTheLineInEveryLanguage) {
    toMenu();
    const std::set<std::string> withAction = {"deleted", "newVersion", "storeFull", "lastTake"};
    StripModel& model = host->strip().strip().model();
    for (const Language& language : Languages::kAll) {
        for (const HostWords::Row& row : HostWords::rows()) {
            const std::string text = HostWords::text(row, language.code);
            const std::string name = row.name;
            const bool isPattern = text.find("{1}") != std::string::npos;
            if (isPattern || name.starts_with("help")) {
                continue;
            }
            const char* action = withAction.count(name) != 0 ? "bringBack" : "";
            model.key(StripKey::kClose);
            host->strip().tell(text, HostWords::text(action, language.code), 0);
            EXPECT_EQ(std::string::npos, line().find("…")) << language.code << " " << text;
        }
    }
}

TEST_F(WebHostTest, theHelpFitsOntoItsSheetInEveryLanguage) {
    toMenu();
    StripModel& model = host->strip().strip().model();
    for (const Language& language : Languages::kAll) {
        model.showHelp({HostWords::text("helpRecordKeys", language.code),
                        HostWords::text("helpKeys", language.code),
                        HostWords::text("helpPlace", language.code),
                        HostWords::text("helpPrivate", language.code)});
        int32_t heightPx = 0;
        for (const std::string& row : model.sheetRows()) {
            heightPx += row.empty() ? StripLayout::kParagraphGapPx : StripLayout::kTextRowHeightPx;
        }
        EXPECT_LE(heightPx, StripLayout::kSheetHeightPx - StripLayout::kRowsTopPx -
                                StripLayout::kCloseHeightPx)
            << language.code;
    }
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
