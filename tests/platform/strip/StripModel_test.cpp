// SPDX-License-Identifier: MIT
// The strip has the right buttons, messages and sheet for every tap, key and screen.
#include "Host.h"
#include "ScreenNames.h"
#include "ScreenTable.h"
#include "StripLayout.h"
#include "StripModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using Kind = StripWish::Kind;

namespace {

ScreenTexts screen(const std::string& name) {
    ScreenTexts texts;
    texts.language = "en";
    texts.screen = name;
    return texts;
}

StripModel on(const std::string& name, bool canSave = true) {
    StripModel model;
    model.setTextWidth(
        [](const std::string& utf8) { return static_cast<int32_t>(utf8.size()) * 5; });
    model.setScreen(screen(name), 2, canSave);
    model.setCanOpen(name == "Play");
    return model;
}

StripWish wish(Kind kind, int32_t index = 0) {
    StripWish wish;
    wish.kind = kind;
    wish.index = index;
    return wish;
}

StripWish tapOn(StripModel& model, const ScreenPlace& place) {
    return model.tap(place.x + place.w / 2, place.y + place.h / 2);
}

std::vector<StripButton> buttonsOf(const StripModel& model, Kind kind) {
    std::vector<StripButton> found;
    for (const StripButton& button : model.buttons()) {
        if (button.wish.kind == kind) {
            found.push_back(button);
        }
    }
    return found;
}

LevelMeter::Reading level(int32_t db) {
    LevelMeter::Reading reading;
    reading.peakDb = db;
    reading.meanDb = db;
    return reading;
}

}  // namespace

TEST(StripModel, onPlayEachHeadChoosesItsEffect) {
    StripModel model = on("Play");
    const std::vector<StripButton> heads = buttonsOf(model, Kind::kEffect);
    ASSERT_EQ(8U, heads.size());
    for (int32_t i = 0; i < 8; i++) {
        const StripButton& head = heads[static_cast<size_t>(i)];
        EXPECT_EQ(i == 2, head.isLit);
        EXPECT_EQ(wish(Kind::kEffect, i), tapOn(model, head.place));
    }
}

TEST(StripModel, headsStandOnPlayOnly) {
    int32_t count = 0;
    const ScreenTable::Row* rows = ScreenTable::rows(count);
    std::vector<std::string> names = {""};
    std::transform(rows, rows + count, std::back_inserter(names),
                   [](const ScreenTable::Row& row) { return row.name; });
    names.erase(std::find(names.begin(), names.end(), ScreenNames::kPlay));
    for (const std::string& name : names) {
        StripModel model = on(name);
        EXPECT_TRUE(buttonsOf(model, Kind::kEffect).empty()) << name;
        EXPECT_EQ(StripWish(), model.tap(15, 30)) << name;
        EXPECT_EQ(StripWish(), model.key(StripKey::kEffect3)) << name;
    }
}

TEST(StripModel, theQuestionAboutSilenceTakesTheHeadsAway) {
    StripModel model = on("Play");
    ScreenTexts texts = screen("Play");
    texts.isQuestion = true;
    model.setScreen(texts, 2, false);
    EXPECT_TRUE(buttonsOf(model, Kind::kEffect).empty());
    EXPECT_EQ(StripWish(), model.key(StripKey::kEffect1));
}

TEST(StripModel, keysWishWhatTheirButtonsDo) {
    StripModel model = on("Play");
    EXPECT_EQ(wish(Kind::kEffect, 0), model.key(StripKey::kEffect1));
    EXPECT_EQ(wish(Kind::kEffect, 7), model.key(StripKey::kEffect8));
    EXPECT_EQ(wish(Kind::kSave), model.key(StripKey::kSave));
    EXPECT_EQ(wish(Kind::kOpen), model.key(StripKey::kOpen));
    EXPECT_EQ(wish(Kind::kMicrophones), model.key(StripKey::kMicrophones));
    EXPECT_EQ(wish(Kind::kHelp), model.key(StripKey::kHelp));
}

TEST(StripModel, escapeIsNotTheStripsWhenNothingIsOpen) {
    StripModel model = on("Play");
    EXPECT_EQ(StripWish(), model.key(StripKey::kClose));
}

TEST(StripModel, theFiveButtonsFillTheLowestRows) {
    StripModel model = on("Play");
    const Kind kinds[] = {Kind::kSave, Kind::kOpen, Kind::kMicrophones, Kind::kSounds, Kind::kHelp};
    const int32_t edges[] = {0, 56, 102, 148, 194, 240};
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(kinds[i], model.tap(edges[i], 48).kind) << i;
        EXPECT_EQ(kinds[i], model.tap(edges[i + 1] - 1, 78).kind) << i;
    }
    EXPECT_EQ(StripWish(), model.tap(0, 16));
    EXPECT_EQ(StripWish(), model.tap(0, 79));
    EXPECT_EQ(StripWish(), model.tap(-1, 60));
    EXPECT_EQ(StripWish(), model.tap(240, 60));
}

TEST(StripModel, greySaveIsStillAWishSoThatTheHostSaysWhy) {
    StripModel model = on("Record", false);
    EXPECT_FALSE(buttonsOf(model, Kind::kSave)[0].isEnabled);
    EXPECT_FALSE(buttonsOf(model, Kind::kOpen)[0].isEnabled);
    EXPECT_EQ(wish(Kind::kSave), model.key(StripKey::kSave));
    EXPECT_EQ(wish(Kind::kOpen), model.key(StripKey::kOpen));
}

TEST(StripModel, whileRecordingNoOtherMicrophoneCanBeChosen) {
    StripModel model = on("Recording");
    EXPECT_FALSE(buttonsOf(model, Kind::kMicrophones)[0].isEnabled);
    EXPECT_EQ(StripWish(), model.key(StripKey::kMicrophones));
    EXPECT_EQ(StripWish(), model.tap(120, 60));
}

TEST(StripModel, aMessageOffersAnotherMicrophoneOnlyWhereItCanBeChosen) {
    StripModel model = on("Recording");
    model.tell("No sound comes.", wish(Kind::kMicrophones), "Choose", 0);
    EXPECT_EQ("No sound comes.", model.lines()[0]);
    EXPECT_EQ(StripWish(), model.action().wish);
    EXPECT_EQ(1U, buttonsOf(model, Kind::kMicrophones).size());  // the grey button alone
    model.setScreen(screen("Play"), 2, true);
    EXPECT_EQ(wish(Kind::kMicrophones), model.action().wish);
    EXPECT_EQ(wish(Kind::kMicrophones), tapOn(model, model.action().place));
}

TEST(StripModel, theRecordingTellsLevelSecondsAndMicrophone) {
    StripModel model = on("Recording");
    model.setMicrophoneName("Headset");
    model.setRecording(level(-12), 17, false);
    EXPECT_TRUE(model.showsLevel());
    EXPECT_EQ(-12, model.level().peakDb);
    EXPECT_EQ(17, model.secondsLeft());
    EXPECT_EQ(std::vector<std::string>{"Headset"}, model.lines());
    EXPECT_FALSE(model.isTelling());
    EXPECT_EQ(-1, on("Play").secondsLeft());
}

TEST(StripModel, aMuteMicrophoneIsNamed) {
    StripModel model = on("Recording");
    model.setMicrophoneName("Headset");
    model.setRecording(level(-60), 19, true);
    EXPECT_EQ(std::vector<std::string>{"No sound comes from “Headset”."}, model.lines());
    EXPECT_TRUE(model.isTelling());
    model.setMicrophoneName("");
    EXPECT_EQ("No sound comes from the microphone. Is", model.lines()[0]);
    model.setRecording(level(-20), 18, false);
    EXPECT_TRUE(model.lines().empty());
}

TEST(StripModel, aNewRecordingBeginsWithoutTheOldLevel) {
    StripModel model = on("Recording");
    model.setRecording(level(-3), 2, true);
    model.setScreen(screen("Process"), 2, false);
    model.setScreen(screen("Recording"), 2, false);
    EXPECT_EQ(LevelMeter::kFloorDb, model.level().peakDb);
    EXPECT_FALSE(model.isTelling());
}

TEST(StripModel, aKeyDoesWhatTheMessageOffers) {
    StripModel model = on("Play");
    EXPECT_EQ(StripWish(), model.key(StripKey::kAction));
    model.tell("gone", wish(Kind::kBringBack), "Bring back", 0);
    model.showHelp({"keys"});
    EXPECT_EQ(wish(Kind::kBringBack), model.key(StripKey::kAction));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    EXPECT_FALSE(model.canClose());
    model.tell("without an action", {}, "", 0);
    EXPECT_EQ(StripWish(), model.key(StripKey::kAction));
    EXPECT_TRUE(model.canClose());
}

TEST(StripModel, aMessageStandsForSixSeconds) {
    StripModel model = on("Play");
    model.tell("Hello", {}, "", 1000);
    EXPECT_EQ(std::vector<std::string>{"Hello"}, model.lines());
    EXPECT_EQ(7000, model.dueMs());
    EXPECT_FALSE(model.tick(6999));
    EXPECT_TRUE(model.tick(7000));
    EXPECT_TRUE(model.lines().empty());
    EXPECT_EQ(-1, model.dueMs());
}

TEST(StripModel, aLongMessageCoversTheHeadsUntilItEnds) {
    StripModel model = on("Play");
    model.tell("A message of so many words that they stand in two rows", {}, "", 0);
    EXPECT_EQ(2U, model.lines().size());
    EXPECT_FALSE(model.showsHeads());
    EXPECT_TRUE(buttonsOf(model, Kind::kEffect).empty());
    EXPECT_EQ(wish(Kind::kEffect, 3), model.key(StripKey::kEffect4));
    EXPECT_EQ(wish(Kind::kClose), model.tap(10, 20));
    EXPECT_TRUE(model.showsHeads());
}

TEST(StripModel, theActionOfAMessageIsReturnedOnce) {
    StripModel model = on("Play");
    StripWish show = wish(Kind::kShowFile);
    show.path = "/home/me/rec_00003.wav";
    model.tell("Saved: rec_00003.wav", show, "Show", 0);
    EXPECT_EQ(10000, model.dueMs());
    const ScreenPlace place = model.action().place;
    EXPECT_EQ("Show", model.action().name);
    EXPECT_LE(place.x + place.w, 240);
    EXPECT_EQ(show, tapOn(model, place));
    EXPECT_TRUE(model.lines().empty());
    EXPECT_EQ(StripWish(), model.action().wish);
}

TEST(StripModel, escapeClosesTheMessage) {
    StripModel model = on("Play");
    model.tell("Hello", {}, "", 0);
    EXPECT_EQ(wish(Kind::kClose), model.key(StripKey::kClose));
    EXPECT_TRUE(model.lines().empty());
    EXPECT_EQ(StripWish(), model.key(StripKey::kClose));
}

TEST(StripModel, aSecondMessageWaitsTwoSeconds) {
    StripModel model = on("Play");
    model.tell("first", {}, "", 0);
    model.tell("second", {}, "", 500);
    EXPECT_EQ("first", model.lines()[0]);
    EXPECT_EQ(2000, model.dueMs());
    EXPECT_TRUE(model.tick(2000));
    EXPECT_EQ("second", model.lines()[0]);
    EXPECT_EQ(8000, model.dueMs());
}

TEST(StripModel, aMessageThatCanBeActedOnStaysForFiveSecondsThoughAnotherWaits) {
    StripModel model = on("Play");
    model.tell("Saved", wish(Kind::kBringBack), "Bring back", 0);
    model.tell("second", {}, "", 3000);
    EXPECT_EQ("Saved", model.lines()[0]);
    EXPECT_EQ(5000, model.dueMs());
    EXPECT_TRUE(model.tick(5000));
    EXPECT_EQ("second", model.lines()[0]);
}

TEST(StripModel, aMessageAfterTwoSecondsTakesThePlaceAtOnce) {
    StripModel model = on("Play");
    model.tell("first", {}, "", 0);
    model.tell("second", {}, "", 3000);
    EXPECT_EQ("second", model.lines()[0]);
}

TEST(StripModel, theSameMessageAgainIsNotQueued) {
    StripModel model = on("Play");
    model.tell("There is nothing to save", {}, "", 0);
    model.tell("There is nothing to save", {}, "", 5000);
    EXPECT_EQ(11000, model.dueMs());
    EXPECT_TRUE(model.tick(11000));
    EXPECT_TRUE(model.lines().empty());
}

TEST(StripModel, aClosedMessageGivesWayToTheOneThatWaits) {
    StripModel model = on("Play");
    model.tell("first", {}, "", 0);
    model.tell("second", {}, "", 0);
    model.key(StripKey::kClose);
    EXPECT_EQ("second", model.lines()[0]);
    EXPECT_EQ(0, model.dueMs());
    model.tick(100);
    EXPECT_EQ(6100, model.dueMs());
}

TEST(StripModel, theListOffersTheSystemsChoiceAndEachDevice) {
    StripModel model = on("Record");
    model.setMicrophones({"Headset", "Camera"}, 1);
    model.showMicrophones();
    const std::vector<StripButton> choices = buttonsOf(model, Kind::kUseMicrophone);
    ASSERT_EQ(3U, choices.size());
    EXPECT_EQ("Default microphone", choices[0].name);
    EXPECT_EQ("Headset", choices[1].name);
    EXPECT_TRUE(choices[2].isLit);
    EXPECT_FALSE(choices[0].isLit);
    EXPECT_EQ(wish(Kind::kUseMicrophone, 0), tapOn(model, choices[1].place));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
}

TEST(StripModel, anAbsentMicrophoneIsListedAndCannotBeChosen) {
    StripModel model = on("Record");
    model.setMicrophones({"Headset", "Not connected: Camera"}, 1, 1);
    model.showMicrophones();
    const std::vector<StripButton> choices = buttonsOf(model, Kind::kUseMicrophone);
    ASSERT_EQ(3U, choices.size());
    EXPECT_TRUE(choices[1].isEnabled);
    EXPECT_FALSE(choices[2].isEnabled);
    EXPECT_TRUE(choices[2].isLit);
    for (const ScreenTexts::Entry& entry : model.sheetTexts().entries) {
        EXPECT_NE("Not connected: Camera", entry.text);
    }
    EXPECT_EQ(wish(Kind::kClose), tapOn(model, choices[2].place));
    model.setMicrophones({"Headset", "Camera"}, 1);
    model.showMicrophones();
    EXPECT_EQ(wish(Kind::kUseMicrophone, 1), tapOn(model, choices[2].place));
}

TEST(StripModel, aLongListTurnsPages) {
    StripModel model = on("Record");
    std::vector<std::string> names;
    for (int32_t i = 0; i < 12; i++) {
        names.push_back("device " + std::to_string(i));
    }
    model.setMicrophones(names, StripWish::kSystemsChoice);
    model.showMicrophones();
    const ScreenPlace more = StripLayout::choice(StripLayout::kMaxChoices - 1);
    EXPECT_EQ(9U, buttonsOf(model, Kind::kUseMicrophone).size());
    EXPECT_EQ(wish(Kind::kClose), tapOn(model, more));
    const std::vector<StripButton> rest = buttonsOf(model, Kind::kUseMicrophone);
    ASSERT_EQ(4U, rest.size());
    EXPECT_EQ("device 8", rest[0].name);
    EXPECT_EQ(wish(Kind::kUseMicrophone, 11), tapOn(model, rest[3].place));
}

TEST(StripModel, aListThatShrinksWhileItsSecondPageIsOpenShowsItsFirst) {
    StripModel model = on("Record");
    model.setMicrophones(std::vector<std::string>(14, "Ear"), StripWish::kSystemsChoice);
    model.showMicrophones();
    tapOn(model, buttonsOf(model, Kind::kMicrophones).back().place);
    EXPECT_EQ(8, buttonsOf(model, Kind::kUseMicrophone).at(0).wish.index);
    model.setMicrophones({"Ear"}, StripWish::kSystemsChoice);
    const std::vector<StripButton> choices = buttonsOf(model, Kind::kUseMicrophone);
    ASSERT_EQ(2U, choices.size());
    EXPECT_EQ(StripWish::kSystemsChoice, choices[0].wish.index);
}

TEST(StripModel, aListThatShrinksToOnePageShowsAllOfIt) {
    StripModel model = on("Record");
    model.setMicrophones(std::vector<std::string>(10, "Ear"), StripWish::kSystemsChoice);
    model.showMicrophones();
    tapOn(model, buttonsOf(model, Kind::kMicrophones).back().place);
    EXPECT_EQ(2U, buttonsOf(model, Kind::kUseMicrophone).size());
    model.setMicrophones(std::vector<std::string>(9, "Ear"), StripWish::kSystemsChoice);
    EXPECT_EQ(10U, buttonsOf(model, Kind::kUseMicrophone).size());
}

TEST(StripModel, aListThatChangesLosesTheFocusThatAKeyHasMoved) {
    StripModel model = on("Record");
    for (const bool changes : {false, true}) {
        model.setMicrophones({"Ear", "Nose"}, StripWish::kSystemsChoice);
        model.showMicrophones();
        model.navigate(HostKey::kDown);
        if (changes) {
            model.setMicrophones({"Nose", "Ear"}, StripWish::kSystemsChoice);
        }
        // Without a moved focus, the key takes the microphone in use.
        EXPECT_EQ(wish(Kind::kUseMicrophone, changes ? StripWish::kSystemsChoice : 0),
                  model.navigate(HostKey::kMiddle));
    }
}

TEST(StripModel, aTapBesideTheSheetClosesIt) {
    StripModel model = on("Play");
    model.showHelp({"Keys"});
    EXPECT_TRUE(model.covers(120, 300));
    EXPECT_EQ(wish(Kind::kClose), model.tap(120, 300));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    EXPECT_FALSE(model.covers(120, 300));
    EXPECT_TRUE(model.covers(120, 79));
    EXPECT_FALSE(model.covers(120, 80));
}

TEST(StripModel, theHelpButtonClosesTheHelp) {
    StripModel model = on("Play");
    EXPECT_EQ(wish(Kind::kHelp), model.key(StripKey::kHelp));
    model.showHelp({"Keys", "Place"});
    EXPECT_EQ((std::vector<std::string>{"Keys", "", "Place"}), model.sheetRows());
    EXPECT_EQ(wish(Kind::kClose), model.key(StripKey::kHelp));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
}

TEST(StripModel, theKeyOfAnEffectClosesTheSheetWhereItShowsTheEffect) {
    StripModel model = on("Play");
    model.showHelp({"Keys"});
    EXPECT_EQ(wish(Kind::kEffect, 3), model.key(StripKey::kEffect4));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    model = on("Options");
    model.showHelp({"Keys"});
    EXPECT_EQ(StripWish(), model.key(StripKey::kEffect4));
    EXPECT_EQ(StripModel::Sheet::kHelp, model.sheet());
}

TEST(StripModel, theHelpExportsBringsBackAndForgetsWhereTheHostCan) {
    StripModel model = on("Play");
    model.showHelp({"Keys"});
    EXPECT_TRUE(buttonsOf(model, Kind::kForget).empty());
    model.setOffersMore(true);
    EXPECT_TRUE(buttonsOf(model, Kind::kExport).at(0).isEnabled);
    EXPECT_FALSE(buttonsOf(model, Kind::kBringBack).at(0).isEnabled);
    EXPECT_FALSE(buttonsOf(model, Kind::kForget).at(0).isEnabled);
    model.setLastTake(true);
    for (const Kind kind : {Kind::kExport, Kind::kBringBack, Kind::kForget}) {
        model.showHelp({"Keys"});
        EXPECT_EQ(wish(kind), tapOn(model, buttonsOf(model, kind).at(0).place));
        EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    }
    model.setCanOpen(false);
    model.showHelp({"Keys"});
    EXPECT_FALSE(buttonsOf(model, Kind::kBringBack).at(0).isEnabled);
}

TEST(StripModel, aRecordingThatBeginsClosesTheSheet) {
    StripModel model = on("Record");
    model.showMicrophones();
    model.setScreen(screen("Recording"), 2, false);
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
}

TEST(StripModel, whatTheProgramShowsByItselfClosesTheSheet) {
    for (const char* name : {"Process", "MessageAndQuit"}) {
        StripModel model = on("Play");
        model.showHelp({"Keys"});
        model.setScreen(screen(name), 2, false);
        EXPECT_EQ(StripModel::Sheet::kNone, model.sheet()) << name;
        model.showHelp({"Keys"});
        model.setScreen(screen(name), 2, false);  // the same screen: opened by the user
        EXPECT_EQ(StripModel::Sheet::kHelp, model.sheet()) << name;
    }
}

TEST(StripModel, theQuestionAboutSilenceClosesTheSheet) {
    StripModel model = on("Play");
    model.showMicrophones();
    ScreenTexts texts = screen("Play");
    texts.isQuestion = true;
    model.setScreen(texts, 2, false);
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    model.showHelp({"Keys"});
    model.setScreen(texts, 2, false);
    EXPECT_EQ(StripModel::Sheet::kHelp, model.sheet());
}

TEST(StripModel, aSoundThatEndsLeavesTheHelpOpen) {
    StripModel model = on("Playing");
    model.showHelp({"Keys"});
    model.setScreen(screen("Play"), 2, true);
    EXPECT_EQ(StripModel::Sheet::kHelp, model.sheet());
}

TEST(StripModel, aRecordingThatBeginsEndsTheMessages) {
    StripModel model = on("Record");
    model.tell("first", {}, "", 0);
    model.tell("second", {}, "", 0);
    model.tick(1);
    model.setScreen(screen("Recording"), 2, false);
    EXPECT_TRUE(model.lines().empty());
    EXPECT_EQ(-1, model.dueMs());
}

TEST(StripModel, whatIsToldWhileARecordingBeginsStays) {
    StripModel model = on("Record");
    model.tell("of the take before", {}, "", 0);
    model.tick(1);
    model.tell("There is no microphone", {}, "", 100);
    model.tell("The disk is nearly full", {}, "", 100);
    model.setScreen(screen("Recording"), 2, false);
    model.tick(120);
    ASSERT_EQ(1U, model.lines().size());
    EXPECT_EQ("There is no microphone", model.lines()[0]);
    model.tick(2120);
    EXPECT_EQ("The disk is nearly full", model.lines()[0]);
    model.tick(2120 + 6000);
    EXPECT_TRUE(model.lines().empty());
}

TEST(StripModel, theMouseIsToldWhatATapWouldDo) {
    StripModel model = on("Play");
    model.setEffectNames({"a", "b", "c", "d", "e", "f", "g", "Backwards"});
    model.point(239, 30);
    EXPECT_EQ("Backwards", model.lines()[0]);
    model.point(10, 60);
    EXPECT_EQ("Save the sound (S)", model.lines()[0]);
    model.setScreen(screen("Playing"), 2, false);
    EXPECT_TRUE(model.lines().empty());
    model.point(10, 60);
    model.point(-1, -1);
    EXPECT_TRUE(model.lines().empty());
}

TEST(StripModel, theActionThatIsPointedAtLeavesNoHint) {
    StripModel model = on("Play");
    model.tell("Saved", wish(Kind::kShowFile), "Show", 0);
    const ScreenPlace place = model.action().place;
    model.point(place.x + 2, place.y + 2);
    tapOn(model, place);
    EXPECT_TRUE(model.lines().empty());
}

TEST(StripModel, theLastTakeComesBackWhereASoundCanBeTaken) {
    StripModel model = on("Play");
    EXPECT_EQ(StripWish(), model.key(StripKey::kBringBack));
    model.setLastTake(true);
    EXPECT_EQ(wish(Kind::kBringBack), model.key(StripKey::kBringBack));
    model.setCanOpen(false);
    EXPECT_EQ(StripWish(), model.key(StripKey::kBringBack));
}

TEST(StripModel, theVersionChangesWithThePictureOnly) {
    StripModel model = on("Recording");
    model.setRecording(level(-20), 12, false);
    const uint32_t before = model.version();
    model.setRecording(level(-20), 12, false);
    model.setScreen(screen("Recording"), 2, true);
    model.setCanOpen(false);
    model.point(120, 200);
    model.tick(500);
    EXPECT_EQ(before, model.version());
    model.setRecording(level(-21), 12, false);
    EXPECT_NE(before, model.version());
    const uint32_t louder = model.version();
    model.setRecording(level(-21), 11, false);
    EXPECT_NE(louder, model.version());
}

TEST(StripModel, wordsFollowTheLanguage) {
    StripModel model = on("Play");
    ScreenTexts texts = screen("Play");
    texts.language = "de";
    model.setScreen(texts, 2, true);
    EXPECT_EQ("Speichern", buttonsOf(model, Kind::kSave)[0].name);
    EXPECT_EQ("Mikro", buttonsOf(model, Kind::kMicrophones)[0].name);
}

namespace {

/// A list of two microphones, the second of which is in use.
StripModel withList() {
    StripModel model = on("Play");
    model.setMicrophones({"Built-in", "Headset"}, 1);
    model.showMicrophones();
    return model;
}

std::string focusIn(const StripModel& model) {
    for (const ScreenTexts::Entry& entry : model.sheetTexts().entries) {
        if (entry.isFocused) {
            return entry.text;
        }
    }
    return "";
}

}  // namespace

TEST(StripModel, keysOfThePhoneMoveOnTheSheetAndChooseThere) {
    StripModel model = withList();
    EXPECT_EQ("Headset", focusIn(model));
    EXPECT_EQ(StripWish(), model.shownFocus().wish);  // who uses the mouse sees none
    EXPECT_EQ(wish(Kind::kClose), model.navigate(HostKey::kUp));
    EXPECT_EQ("Built-in", focusIn(model));
    EXPECT_EQ("Built-in", model.shownFocus().name);
    EXPECT_EQ(wish(Kind::kUseMicrophone, 0), model.navigate(HostKey::kMiddle));
    EXPECT_EQ(StripModel::Sheet::kNone, model.sheet());
    EXPECT_EQ(StripWish(), model.navigate(HostKey::kMiddle));
}

TEST(StripModel, theFocusGoesRoundOnTheSheet) {
    StripModel model = withList();
    std::vector<std::string> names;
    for (int32_t i = 0; i < 4; i++) {
        model.navigate(i % 2 == 0 ? HostKey::kDown : HostKey::kRight);
        names.push_back(focusIn(model));
    }
    EXPECT_EQ((std::vector<std::string>{"Close", "Default microphone", "Built-in", "Headset"}),
              names);
    model.navigate(HostKey::kLeft);
    EXPECT_EQ("Built-in", focusIn(model));
    EXPECT_EQ(wish(Kind::kClose), model.navigate(HostKey::kRightSoft));  // does nothing
    EXPECT_EQ("Built-in", focusIn(model));
    model.showMicrophones();
    EXPECT_EQ("Headset", focusIn(model));  // each time it opens
}

TEST(StripModel, theFocusBeginsAtTheTopOfThePageThatIsTurnedTo) {
    StripModel model = on("Play");
    std::vector<std::string> names;
    for (int32_t i = 0; i < 12; i++) {
        names.push_back("mic " + std::to_string(i));
    }
    model.setMicrophones(names, StripWish::kSystemsChoice);
    model.showMicrophones();
    for (int32_t i = 0; i < 9; i++) {
        model.navigate(HostKey::kDown);
    }
    EXPECT_EQ(wish(Kind::kClose), model.navigate(HostKey::kMiddle));  // "More"
    EXPECT_EQ(StripModel::Sheet::kMicrophones, model.sheet());
    EXPECT_EQ("mic 8", focusIn(model));
    EXPECT_EQ(wish(Kind::kUseMicrophone, 8), model.navigate(HostKey::kMiddle));
}

TEST(StripModel, onTheHelpTheFocusBeginsAtClose) {
    StripModel model = on("Play", false);
    model.setOffersMore(true);
    model.showHelp({"One.", "Two."});
    EXPECT_EQ("Close", focusIn(model));
    EXPECT_EQ("One. Two.", model.sheetTexts().message);
    EXPECT_EQ("Help", model.sheetTexts().title);
    model.navigate(HostKey::kDown);  // without a sound and a take it is the only one
    EXPECT_EQ("Close", focusIn(model));
    model.setLastTake(true);
    model.setCanOpen(true);
    model.showHelp({"One."});
    model.navigate(HostKey::kUp);
    EXPECT_EQ("Forget", focusIn(model));
    EXPECT_EQ(wish(Kind::kForget), model.navigate(HostKey::kMiddle));
}
