// The whole program in a page that a test plays.
#include "FakePage.h"
#include "OspProgram.h"
#include "ScreenNames.h"
#include "ScreenTable.h"
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
    EXPECT_EQ((Notes{"ask", "tell microphoneRefused", "release"}), page.takeNotes());
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
    EXPECT_EQ(1, std::count(page.notes.begin(), page.notes.end(), "tell tooShort"));
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

TEST_F(WebHostTest, aSoundDoesNotTakeThePlaceOfARunningRecording) {
    toMenu();
    beginRecording();
    page.notes.clear();
    host->use(TestSounds::noise(5000, 7));
    settle();
    EXPECT_EQ((Notes{"tell notNow"}), page.takeNotes());
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
    EXPECT_EQ(1, std::count(page.notes.begin(), page.notes.end(), "tell tooShort"));
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
    EXPECT_EQ((Notes{"stop", "tell microphoneGone", "release"}), page.takeNotes());
}

TEST_F(WebHostTest, everyErrorOfTheBrowserHasItsWords) {
    const std::pair<const char*, const char*> kErrors[] = {
        {"NotAllowedError", "microphoneRefused"}, {"SecurityError", "microphoneRefused"},
        {"NotFoundError", "microphoneMissing"},   {"OverconstrainedError", "microphoneMissing"},
        {"InsecureError", "microphoneInsecure"},  {"NotReadableError", "microphoneBusy"},
        {"AbortError", "microphoneBusy"},         {"AnotherError", "microphoneBusy"},
    };
    toMenu();
    for (const auto& [error, word] : kErrors) {
        page.notes.clear();
        ask();
        host->microphoneAnswered(page.askedTicket, error, 0);
        settle();
        EXPECT_EQ("Options", screen()) << error;
        EXPECT_EQ((Notes{"ask", std::string("tell ") + word, "release"}), page.takeNotes());
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
        EXPECT_EQ((Notes{"ask", "tell microphoneRate", "release"}), page.takeNotes());
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
    EXPECT_EQ((Notes{"tell microphoneGoneEmpty", "release"}), page.takeNotes());
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
    EXPECT_EQ((Notes{"stop", "tell microphoneGone", "release"}), page.takeNotes());
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
    EXPECT_EQ((Notes{"tell microphoneSilent"}), page.takeNotes());
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
    EXPECT_EQ(50, page.volume);
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
        int16_t half = 0;
        std::memcpy(&full, file.data() + at, 2);
        std::memcpy(&half, page.clip.data() + at, 2);
        ASSERT_EQ(full / 2, half) << at;
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
    EXPECT_TRUE(host->keyNamed("Escape"));
    EXPECT_EQ(WebHost::kEnded, settle());
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
    EXPECT_EQ((Notes{"tell cannotPlay"}), page.takeNotes());
}

TEST_F(WebHostTest, aSavedSoundIsToldWithItsEffect) {
    toMenu();
    record();
    key(HostKey::kRight);
    pass(1000);
    host->save();
    pass(100);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(Notes{folders.path("home/Murmelo/rec_00000.wav") + " 1"}, page.keptFiles);
}

TEST_F(WebHostTest, whatCannotBeSavedIsTold) {
    toMenu();
    host->save();
    settle();
    EXPECT_EQ((Notes{"tell nothingToSave"}), page.takeNotes());
    record();
    key(HostKey::kMiddle);
    pass(100);
    page.notes.clear();
    host->save();
    settle();
    EXPECT_EQ((Notes{"tell notNow"}), page.takeNotes());
}

TEST_F(WebHostTest, anIdleProgramWantsNoTurn) {
    toMenu();
    EXPECT_EQ(WebHost::kNever, settle());
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

TEST_F(WebHostTest, theEndIsToldOnceAndNothingHappensAfterwards) {
    toMenu();
    host->key(HostKey::kRightSoft);
    EXPECT_EQ(WebHost::kEnded, settle());
    EXPECT_EQ(nullptr, host->doorsInUse());
    host->key(HostKey::kMiddle);
    host->save();
    EXPECT_EQ(WebHost::kEnded, host->turn());
    host->leave();
    EXPECT_EQ(WebHost::kEnded, host->turn());
}

TEST_F(WebHostTest, thePictureIsTheCanvasAndOnlyChangedRowsAreWorkedOut) {
    toMenu();
    WebPicture::Rows rows = host->paint();
    EXPECT_EQ(0, rows.first);
    EXPECT_EQ(319, rows.last);
    rows = host->paint();
    EXPECT_LT(rows.last, rows.first) << "nothing has changed";
    const uint8_t* pixels = host->picture().bytes();
    for (int32_t i = 0; i < 240 * 320; i++) {
        ASSERT_EQ(255, pixels[4 * i + 3]);
    }
    key(HostKey::kDown);
    rows = host->paint();
    EXPECT_GT(rows.first, 60);
    EXPECT_LT(rows.last, 288) << "the menu moved its focus";
}
