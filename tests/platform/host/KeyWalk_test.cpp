// SPDX-License-Identifier: MIT
// A walk presses the right keys from any screen, and ends where the user must decide.
#include "FakeDoors.h"
#include "KeyWalk.h"
#include "ScreenNames.h"

#include <gtest/gtest.h>

using Keys = std::vector<HostKey>;
using Means = ScreenTexts::Means;

namespace {

constexpr Means kNoKey = FakeDoors::kNoKey;

class KeyWalkTest : public testing::Test {
protected:
    void show(const std::string& screen, Means left, Means middle, Means right) {
        doors.show(screen, left, middle, right);
    }

    /// Shows the menu or another list, with the focus on that entry.
    void list(const std::string& screen, int32_t focused, int32_t recordEntry, Means right) {
        show(screen, kNoKey, Means::kOther, right);
        for (int32_t i = 0; i < 5; i++) {
            ScreenTexts::Entry entry;
            entry.isFocused = i == focused;
            entry.means = i == recordEntry ? Means::kRecord : Means::kOther;
            doors.shown.entries.push_back(entry);
        }
    }

    /// The keys that the walk presses on this screen.
    Keys pressed() {
        doors.keys.clear();
        for (int32_t i = 0; i < 5; i++) {
            walk.step(doors);
        }
        return doors.keys;
    }

    FakeDoors doors;
    KeyWalk walk;
};

}  // namespace

TEST_F(KeyWalkTest, withoutAGoalNoKeyIsPressed) {
    show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, fromPlayOverTheMenuToTheRecording) {
    walk.toRecording();
    show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(Keys{HostKey::kLeftSoft}, pressed());
    list("Options", 2, 0, Means::kBack);
    EXPECT_EQ(Keys{HostKey::kUp}, pressed());
    list("Options", 1, 0, Means::kBack);
    EXPECT_EQ(Keys{HostKey::kUp}, pressed());
    list("Options", 0, 0, Means::kBack);
    EXPECT_EQ(Keys{HostKey::kMiddle}, pressed());
    show("Record", kNoKey, kNoKey, kNoKey);  // "Please wait"
    EXPECT_EQ(Keys{}, pressed());
    show("Record", kNoKey, Means::kRecord, Means::kBack);
    EXPECT_EQ(Keys{HostKey::kMiddle}, pressed());
    list("Options", 0, 0, Means::kBack);  // later
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, outOfWhatStandsInTheWay) {
    walk.toRecording();
    show("Playing", kNoKey, Means::kStop, kNoKey);
    EXPECT_EQ(Keys{HostKey::kMiddle}, pressed());
    show("Save", kNoKey, Means::kOk, kNoKey);
    EXPECT_EQ(Keys{HostKey::kMiddle}, pressed());
    show("Splash", kNoKey, kNoKey, kNoKey);
    EXPECT_EQ(Keys{HostKey::kMiddle}, pressed());
    list("Options", 2, -1, Means::kBack);  // the languages
    EXPECT_EQ(Keys{HostKey::kRightSoft}, pressed());
    show("Process", kNoKey, kNoKey, kNoKey);
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, whatTheUserMustDecideEndsIt) {
    for (const char* screen :
         {ScreenNames::kFirstLanguage, ScreenNames::kLastMessage, ScreenNames::kRecording}) {
        walk.toRecording();
        show(screen, kNoKey, Means::kOk, kNoKey);
        EXPECT_EQ(Keys{}, pressed()) << screen;
        show("Play", Means::kOther, Means::kPlay, Means::kQuit);
        EXPECT_EQ(Keys{}, pressed()) << screen;
    }
    walk.toRecording();
    show("Options", Means::kOther, kNoKey, Means::kOther);
    doors.shown.isQuestion = true;
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, anythingElseThatTheUserDoesEndsIt) {
    walk.toRecording();
    walk.giveUp();
    show("Play", Means::kOther, Means::kPlay, Means::kQuit);
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, downToTheLanguageAndNoFurther) {
    walk.toFirstLanguage(2);
    EXPECT_EQ(Keys{}, pressed());  // no screen yet
    for (int32_t focused = 0; focused < 2; focused++) {
        list(ScreenNames::kFirstLanguage, focused, -1, Means::kQuit);
        EXPECT_EQ(Keys{HostKey::kDown}, pressed());
    }
    list(ScreenNames::kFirstLanguage, 2, -1, Means::kQuit);
    EXPECT_EQ(Keys{}, pressed());
    list(ScreenNames::kFirstLanguage, 0, -1, Means::kQuit);  // the user goes up again
    EXPECT_EQ(Keys{}, pressed());
}

TEST_F(KeyWalkTest, aLaterStartHasNoFirstLanguage) {
    walk.toFirstLanguage(2);
    show("Splash", kNoKey, kNoKey, kNoKey);
    EXPECT_EQ(Keys{}, pressed());
    list(ScreenNames::kFirstLanguage, 0, -1, Means::kQuit);
    EXPECT_EQ(Keys{}, pressed());
}
