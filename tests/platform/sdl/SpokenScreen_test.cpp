// SPDX-License-Identifier: MIT
// New screens, moved focuses and messages are read aloud, each once.
#include "Speech.h"
#include "SpokenScreen.h"

#include <gtest/gtest.h>

namespace {

ScreenTexts screen(const std::string& name, const std::string& language) {
    ScreenTexts texts;
    texts.language = language;
    texts.screen = name;
    return texts;
}

ScreenTexts menu(size_t focused) {
    ScreenTexts texts = screen("Options", "de");
    texts.entries.resize(2);
    texts.entries[0].text = "Aufnehmen";
    texts.entries[1].text = "Hilfe";
    texts.entries[focused].isFocused = true;
    texts.softKeys[1].text = "Ok";
    texts.softKeys[2].text = "Beenden";
    return texts;
}

}  // namespace

TEST(SpokenScreen, aNewScreenIsReadWhole) {
    SpokenScreen spoken;
    EXPECT_EQ("Menü. Aufnehmen. Ok. Beenden", spoken.change(menu(0), ""));
    EXPECT_EQ("", spoken.change(menu(0), ""));
}

TEST(SpokenScreen, aMovedFocusIsTheEntryAlone) {
    SpokenScreen spoken;
    spoken.change(menu(0), "");
    EXPECT_EQ("Hilfe", spoken.change(menu(1), ""));
    EXPECT_EQ("", spoken.change(menu(1), ""));
}

TEST(SpokenScreen, anotherEffectAndAMessageOfTheProgramAreRead) {
    SpokenScreen spoken;
    ScreenTexts texts = screen("Play", "en");
    texts.title = "Robot";
    EXPECT_EQ("Choose an effect. Robot", spoken.change(texts, ""));
    texts.title = "Drunk";
    EXPECT_EQ("Choose an effect. Drunk", spoken.change(texts, ""));
    texts.heading = "Silent";
    texts.message = "Play all the same?";
    EXPECT_EQ("Choose an effect. Drunk. Silent. Play all the same?", spoken.change(texts, ""));
}

TEST(SpokenScreen, howFarAWorkHasComeIsNotTold) {
    SpokenScreen spoken;
    ScreenTexts texts = screen("Process", "en");
    texts.progressQ10 = 10;
    EXPECT_EQ("Please wait", spoken.change(texts, ""));
    texts.progressQ10 = 500;
    EXPECT_EQ("", spoken.change(texts, ""));
}

TEST(SpokenScreen, aMessageOfTheStripIsReadOnce) {
    SpokenScreen spoken;
    spoken.change(menu(0), "");
    EXPECT_EQ("Saved", spoken.change(menu(0), "Saved"));
    EXPECT_EQ("", spoken.change(menu(0), "Saved"));
    EXPECT_EQ("", spoken.change(menu(0), ""));
    EXPECT_EQ("Hilfe. Saved", spoken.change(menu(1), "Saved"));
}

TEST(Speech, aMissingLibraryIsNamed) {
    Speech speech;
    const Problem problem = speech.start([] {}, "libmurmelo-missing.so.1");
    EXPECT_EQ("libmurmelo-missing.so.1 is missing", problem.sentence());
    EXPECT_FALSE(speech.isStarted());
    speech.say("nothing", "en");
    EXPECT_EQ("", speech.takeFailure().reason);
}

TEST(Speech, anotherLibraryIsRefused) {
    Speech speech;
    EXPECT_EQ("libm.so.6 is another library", speech.start([] {}, "libm.so.6").sentence());
    EXPECT_FALSE(speech.isStarted());
}
