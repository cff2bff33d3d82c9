// SPDX-License-Identifier: MIT
// The strip above the picture of the page, and what it says.
#include "Languages.h"
#include "StripLayout.h"
#include "WebHostTest.h"

#include <set>

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

TEST_F(WebHostTest, aKeyThatChangesThePictureClosesTheHelpFirst) {
    toMenu();
    record();
    const StripModel& model = host->strip().strip().model();
    for (const char* key : {"4", "Control+z", "p", "r"}) {
        tapStrip(4 * 48 + 24, 60);
        ASSERT_EQ(StripModel::Sheet::kHelp, model.sheet()) << key;
        EXPECT_TRUE(host->keyNamed(key));
        settle();
        EXPECT_EQ(StripModel::Sheet::kNone, model.sheet()) << key;
        pass(100);
        if (screen() == "Playing") {
            host->keyNamed("p");
            pass(100);
        }
    }
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
