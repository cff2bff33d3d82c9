// SPDX-License-Identifier: MIT
// Takes that are kept, brought back and taken in from files, and sounds that are saved.
#include "WebHostTest.h"

TEST_F(WebHostTest, aRefusalBringsTheEarlierTakeBackBitForBit) {
    toMenu();
    record();
    const std::string cleaned = folders.read("home/Murmelo/MrmLastRec.wav");
    key(HostKey::kLeftSoft);
    ask();
    EXPECT_NE(cleaned, folders.read("home/Murmelo/MrmLastRec.wav")) << "the take is deleted";
    refuse();
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
    refuseAnother();
    pass(100);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(cleaned == folders.read("home/Murmelo/MrmLastRec.wav"));
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
    refuseAnother();
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
