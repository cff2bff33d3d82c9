// SPDX-License-Identifier: MIT
// Each key of a computer's keyboard means the right thing on each screen.
#include "FakeDoors.h"
#include "FxCatalogue.h"
#include "KeyRules.h"
#include "ScreenNames.h"
#include "StripModel.h"

#include <gtest/gtest.h>

using Kind = KeyDeed::Kind;
using Means = ScreenTexts::Means;
using Name = KeyPress::Name;

namespace {

constexpr Means kNoKey = FakeDoors::kNoKey;
constexpr KeyDeed kNothing = {};

KeyDeed navigation(HostKey key) {
    return {Kind::kNavigate, key};
}

class KeyRulesTest : public testing::Test {
protected:
    KeyDeed named(Name name) { return KeyRules::deedOf({name}, &doors); }

    KeyDeed typed(char character) {
        return KeyRules::deedOf({Name::kCharacter, character}, &doors);
    }

    KeyDeed withControl(char character) {
        return KeyRules::deedOf({Name::kCharacter, character, true}, &doors);
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
    EXPECT_EQ(KeyDeed{Kind::kVolumeUp}, typed('+'));
    EXPECT_EQ(KeyDeed{Kind::kVolumeUp}, typed('='));
    EXPECT_EQ(KeyDeed{Kind::kVolumeUp}, named(Name::kVolumeUp));
    EXPECT_EQ(KeyDeed{Kind::kVolumeDown}, typed('-'));
    EXPECT_EQ(KeyDeed{Kind::kVolumeDown}, named(Name::kVolumeDown));
}

TEST_F(KeyRulesTest, digitsAreEffects) {
    static_assert(StripModel::kEffects == FxCatalogue::kCount, "one head for each effect");
    static_assert(FxCatalogue::kCount < 10, "one digit for each effect");
    for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
        EXPECT_EQ((KeyDeed{Kind::kEffect, HostKey::kMiddle, i}), typed(static_cast<char>('1' + i)));
    }
    EXPECT_EQ(kNothing, typed('0'));
    for (char digit = '1' + FxCatalogue::kCount; digit <= '9'; digit++) {
        EXPECT_EQ(kNothing, typed(digit));
    }
}

TEST_F(KeyRulesTest, lettersOfTheStrip) {
    EXPECT_EQ(KeyDeed{Kind::kSave}, typed('s'));
    EXPECT_EQ(KeyDeed{Kind::kOpen}, typed('o'));
    EXPECT_EQ(KeyDeed{Kind::kMicrophones}, typed('m'));
    EXPECT_EQ(KeyDeed{Kind::kHelp}, typed('?'));
    EXPECT_EQ(KeyDeed{Kind::kAction}, typed('a'));
    EXPECT_EQ(kNothing, typed('x'));
}

TEST_F(KeyRulesTest, keysOfTheWindow) {
    EXPECT_EQ(KeyDeed{Kind::kQuit}, withControl('q'));
    EXPECT_EQ(KeyDeed{Kind::kQuit}, withControl('w'));
    EXPECT_EQ(KeyDeed{Kind::kUsualSize}, withControl('0'));
    EXPECT_EQ(KeyDeed{Kind::kLarger}, withControl('+'));
    EXPECT_EQ(KeyDeed{Kind::kLarger}, withControl('='));
    EXPECT_EQ(KeyDeed{Kind::kSmaller}, withControl('-'));
    EXPECT_EQ(KeyDeed{Kind::kFullScreen}, named(Name::kF11));
    EXPECT_EQ(KeyDeed{Kind::kFullScreen}, KeyRules::deedOf({Name::kEnter, 0, false, true}, &doors));
}

TEST_F(KeyRulesTest, otherCombinationsAreNothing) {
    EXPECT_EQ(kNothing, withControl('r'));
    EXPECT_EQ(kNothing, withControl('1'));
    EXPECT_EQ(kNothing, KeyRules::deedOf({Name::kRight, 0, true}, &doors));
    EXPECT_EQ(kNothing, KeyRules::deedOf({Name::kCharacter, 'q', true, true}, &doors));
    EXPECT_EQ(kNothing, KeyRules::deedOf({Name::kEscape, 0, false, true}, &doors));
}

TEST_F(KeyRulesTest, rRecordsAndStops) {
    doors.show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(KeyDeed{Kind::kRecord}, typed('r'));
    doors.show("Recording", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(navigation(HostKey::kMiddle), typed('r'));
    doors.show("Playing", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(KeyDeed{Kind::kRecord}, typed('r'));
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
    EXPECT_EQ(kNothing, KeyRules::deedOf({Name::kEscape}, nullptr));
}

TEST_F(KeyRulesTest, filesAndPictures) {
    EXPECT_EQ(KeyDeed{Kind::kSave}, withControl('s'));
    EXPECT_EQ(KeyDeed{Kind::kExport},
              KeyRules::deedOf({Name::kCharacter, 's', true, false, true}, &doors));
    EXPECT_EQ(KeyDeed{Kind::kOpen}, withControl('o'));
    EXPECT_EQ(KeyDeed{Kind::kBringBack}, withControl('z'));
    EXPECT_EQ(KeyDeed{Kind::kPicture}, named(Name::kF12));
}

TEST_F(KeyRulesTest, escapeClosesFirstWhatCanBeClosed) {
    EXPECT_EQ(KeyDeed{Kind::kClose}, KeyRules::deedOf({Name::kEscape}, &doors, true));
    EXPECT_EQ(KeyDeed{Kind::kClose}, KeyRules::deedOf({Name::kEscape}, nullptr, true));
    EXPECT_EQ(KeyDeed{Kind::kHelp}, KeyRules::deedOf({Name::kCharacter, '?'}, &doors, true));
}

TEST(KeyRules, deedsThatChangeThePictureBelowASheetCloseItFirst) {
    using Kind = KeyDeed::Kind;
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
