// SPDX-License-Identifier: MIT
// The microphone that the browser gives, refuses or takes away.
#include "WebHostTest.h"

#include <utility>

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
    refuse();
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

TEST_F(WebHostTest, aRefusalForgetsWhatWasPressedMeanwhile) {
    toMenu();
    ask();
    host->key(HostKey::kRightSoft);
    host->key(HostKey::kRightSoft);
    host->key(HostKey::kMiddle);
    host->touch(HostListener::Touch::kPress, false, 1, 440, 780, 5000);
    host->touch(HostListener::Touch::kRelease, false, 1, 440, 780, 5000);
    refuse();
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
