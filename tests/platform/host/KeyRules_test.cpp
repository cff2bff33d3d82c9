// SPDX-License-Identifier: MIT
// Each key of a computer's keyboard means the right thing on each screen.
#include "FakeDoors.h"
#include "FxCatalogue.h"
#include "KeyRules.h"
#include "ScreenNames.h"
#include "StripModel.h"

#include <gtest/gtest.h>

using Kind = KeyAction::Kind;
using Means = ScreenTexts::Means;
using Name = KeyPress::Name;

namespace {

constexpr Means kNoKey = FakeDoors::kNoKey;
constexpr KeyAction kNothing = {};

KeyAction navigation(HostKey key) {
    return {Kind::kNavigate, key};
}

class KeyRulesTest : public testing::Test {
protected:
    KeyAction named(Name name) { return KeyRules::actionOf({name}, &doors); }

    KeyAction typed(char character) {
        return KeyRules::actionOf({Name::kCharacter, character}, &doors);
    }

    KeyAction withControl(char character) {
        return KeyRules::actionOf({Name::kCharacter, character, true}, &doors);
    }

    FakeDoors doors;
};

}  // namespace

TEST_F(KeyRulesTest, thePhonesKeys) {
    EXPECT_EQ(navigation(HostKey::kUp), named(Name::kUp));
    EXPECT_EQ(navigation(HostKey::kDown), named(Name::kDown));
    EXPECT_EQ(navigation(HostKey::kLeft), named(Name::kLeft));
    EXPECT_EQ(navigation(HostKey::kRight), named(Name::kRight));
    EXPECT_EQ(navigation(HostKey::kMiddle), named(Name::kEnter));
    EXPECT_EQ(navigation(HostKey::kMiddle), typed(' '));
    EXPECT_EQ(navigation(HostKey::kLeftSoft), named(Name::kF1));
    EXPECT_EQ(navigation(HostKey::kRightSoft), named(Name::kF2));
    EXPECT_EQ(kNothing, named(Name::kOther));
}

TEST_F(KeyRulesTest, theVolume) {
    EXPECT_EQ(KeyAction{Kind::kVolumeUp}, typed('+'));
    EXPECT_EQ(KeyAction{Kind::kVolumeUp}, typed('='));
    EXPECT_EQ(KeyAction{Kind::kVolumeUp}, named(Name::kVolumeUp));
    EXPECT_EQ(KeyAction{Kind::kVolumeDown}, typed('-'));
    EXPECT_EQ(KeyAction{Kind::kVolumeDown}, named(Name::kVolumeDown));
}

TEST_F(KeyRulesTest, digitsAreEffects) {
    static_assert(StripModel::kEffects == FxCatalogue::kCount, "one head for each effect");
    static_assert(FxCatalogue::kCount < 10, "one digit for each effect");
    for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
        EXPECT_EQ((KeyAction{Kind::kEffect, HostKey::kMiddle, i}),
                  typed(static_cast<char>('1' + i)));
    }
    EXPECT_EQ(kNothing, typed('0'));
    for (char digit = '1' + FxCatalogue::kCount; digit <= '9'; digit++) {
        EXPECT_EQ(kNothing, typed(digit));
    }
}

TEST_F(KeyRulesTest, lettersOfTheStrip) {
    EXPECT_EQ(KeyAction{Kind::kSave}, typed('s'));
    EXPECT_EQ(KeyAction{Kind::kOpen}, typed('o'));
    EXPECT_EQ(KeyAction{Kind::kMicrophones}, typed('m'));
    EXPECT_EQ(KeyAction{Kind::kHelp}, typed('?'));
    EXPECT_EQ(KeyAction{Kind::kAction}, typed('a'));
    EXPECT_EQ(kNothing, typed('x'));
}

TEST_F(KeyRulesTest, keysOfTheWindow) {
    EXPECT_EQ(KeyAction{Kind::kQuit}, withControl('q'));
    EXPECT_EQ(KeyAction{Kind::kQuit}, withControl('w'));
    EXPECT_EQ(KeyAction{Kind::kUsualSize}, withControl('0'));
    EXPECT_EQ(KeyAction{Kind::kLarger}, withControl('+'));
    EXPECT_EQ(KeyAction{Kind::kLarger}, withControl('='));
    EXPECT_EQ(KeyAction{Kind::kSmaller}, withControl('-'));
    EXPECT_EQ(KeyAction{Kind::kFullScreen}, named(Name::kF11));
    EXPECT_EQ(KeyAction{Kind::kFullScreen},
              KeyRules::actionOf({Name::kEnter, 0, false, true}, &doors));
}

TEST_F(KeyRulesTest, otherCombinationsAreNothing) {
    EXPECT_EQ(kNothing, withControl('r'));
    EXPECT_EQ(kNothing, withControl('1'));
    EXPECT_EQ(kNothing, KeyRules::actionOf({Name::kRight, 0, true}, &doors));
    EXPECT_EQ(kNothing, KeyRules::actionOf({Name::kCharacter, 'q', true, true}, &doors));
    EXPECT_EQ(kNothing, KeyRules::actionOf({Name::kEscape, 0, false, true}, &doors));
}

TEST_F(KeyRulesTest, rRecordsAndStops) {
    doors.show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(KeyAction{Kind::kRecord}, typed('r'));
    doors.show("Recording", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), typed('r'));
    doors.show("Playing", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(KeyAction{Kind::kRecord}, typed('r'));
}

TEST_F(KeyRulesTest, pPlaysAndStops) {
    doors.show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(navigation(HostKey::kMiddle), typed('p'));
    doors.show("Playing", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), typed('p'));
    doors.show("Recording", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(kNothing, typed('p'));
    doors.show("Record", kNoKey, Means::kRecord, Means::kBack);
    EXPECT_EQ(kNothing, typed('p'));
}

TEST_F(KeyRulesTest, escapeGoesBackWhereTheRightKeySaysBack) {
    doors.show("Record", kNoKey, Means::kRecord, Means::kBack);
    EXPECT_EQ(navigation(HostKey::kRightSoft), named(Name::kEscape));
    doors.show("Options", kNoKey, Means::kOther, Means::kBack);
    EXPECT_EQ(navigation(HostKey::kRightSoft), named(Name::kEscape));
}

TEST_F(KeyRulesTest, escapeStopsWhereThatIsTheOnlyKey) {
    doors.show("Recording", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), named(Name::kEscape));
    doors.show("Playing", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), named(Name::kEscape));
}

TEST_F(KeyRulesTest, escapeClosesAMessage) {
    doors.show("Options", kNoKey, Means::kOk, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), named(Name::kEscape));
    doors.show("Save", kNoKey, Means::kOk, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), named(Name::kEscape));
}

TEST_F(KeyRulesTest, escapeNeverEndsTheProgram) {
    doors.show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(kNothing, named(Name::kEscape));
    doors.show("Options", kNoKey, Means::kOther, Means::kQuit);
    EXPECT_EQ(kNothing, named(Name::kEscape));
    doors.show(ScreenNames::kFirstLanguage, kNoKey, Means::kOther, Means::kQuit);
    EXPECT_EQ(kNothing, named(Name::kEscape));
    doors.show(ScreenNames::kLastMessage, kNoKey, Means::kOk, kNoKey);
    EXPECT_EQ(kNothing, named(Name::kEscape));
    doors.show("Splash", kNoKey, kNoKey, kNoKey);
    EXPECT_EQ(kNothing, named(Name::kEscape));
    EXPECT_EQ(kNothing, KeyRules::actionOf({Name::kEscape}, nullptr));
}

TEST_F(KeyRulesTest, filesAndPictures) {
    EXPECT_EQ(KeyAction{Kind::kSave}, withControl('s'));
    EXPECT_EQ(KeyAction{Kind::kExport},
              KeyRules::actionOf({Name::kCharacter, 's', true, false, true}, &doors));
    EXPECT_EQ(KeyAction{Kind::kOpen}, withControl('o'));
    EXPECT_EQ(KeyAction{Kind::kBringBack}, withControl('z'));
    EXPECT_EQ(KeyAction{Kind::kPicture}, named(Name::kF12));
}

TEST_F(KeyRulesTest, escapeClosesFirstWhatCanBeClosed) {
    EXPECT_EQ(KeyAction{Kind::kClose}, KeyRules::actionOf({Name::kEscape}, &doors, true));
    EXPECT_EQ(KeyAction{Kind::kClose}, KeyRules::actionOf({Name::kEscape}, nullptr, true));
    EXPECT_EQ(KeyAction{Kind::kHelp}, KeyRules::actionOf({Name::kCharacter, '?'}, &doors, true));
}

TEST(KeyRules, deedsThatChangeThePictureBelowASheetCloseItFirst) {
    using Kind = KeyAction::Kind;
    for (const Kind kind : {Kind::kNavigate, Kind::kRecord, Kind::kExport, Kind::kBringBack}) {
        EXPECT_TRUE(KeyRules::closesSheet({kind}));
    }
    for (const Kind kind :
         {Kind::kVolumeUp, Kind::kPicture, Kind::kFullScreen, Kind::kClose, Kind::kNone}) {
        EXPECT_FALSE(KeyRules::closesSheet({kind}));
    }
}

TEST(KeyRules, whatIsAKeyOfThePhoneByItself) {
    HostKey key = HostKey::kLeftSoft;
    KeyPress press;
    press.name = Name::kDown;
    EXPECT_TRUE(KeyRules::isOfPhone(press, key));
    EXPECT_EQ(HostKey::kDown, key);
    press.name = Name::kCharacter;
    press.character = ' ';
    EXPECT_TRUE(KeyRules::isOfPhone(press, key));
    EXPECT_EQ(HostKey::kMiddle, key);
    press.character = 'r';  // means it only where the picture says so
    EXPECT_FALSE(KeyRules::isOfPhone(press, key));
    press.name = Name::kEnter;
    press.alt = true;
    EXPECT_FALSE(KeyRules::isOfPhone(press, key));
    press.alt = false;
    press.name = Name::kF11;
    EXPECT_FALSE(KeyRules::isOfPhone(press, key));
}
