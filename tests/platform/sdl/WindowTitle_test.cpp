// SPDX-License-Identifier: MIT
// The window's title names the screen and the effect in the program's language.
#include "HostWords.h"
#include "WindowTitle.h"

#include <gtest/gtest.h>

namespace {

ScreenTexts on(const std::string& screen, const std::string& language, const std::string& effect) {
    ScreenTexts texts;
    texts.screen = screen;
    texts.language = language;
    texts.title = effect;
    return texts;
}

}  // namespace

TEST(WindowTitle, carriesScreenAndEffectInTheProgramsLanguage) {
    EXPECT_EQ("Choose an effect: Robot - Murmelo", WindowTitle::of(on("Play", "en", "Robot")));
    EXPECT_EQ("Effekt wählen: Roboter - Murmelo", WindowTitle::of(on("Play", "de", "Roboter")));
    EXPECT_EQ("Choix de l’effet\u00A0: Robot - Murmelo",
              WindowTitle::of(on("Play", "fr", "Robot")));
    EXPECT_EQ("Enregistrement - Murmelo", WindowTitle::of(on("Recording", "fr", "")));
}

TEST(WindowTitle, isTheProgramsNameWhereTheScreenHasNone) {
    EXPECT_EQ("Murmelo", WindowTitle::of({}));
    EXPECT_EQ("Murmelo", WindowTitle::of(on("Splash", "en", "")));
    EXPECT_EQ("Robot - Murmelo", WindowTitle::of(on("Splash", "fr", "Robot")));
}

TEST(WindowTitle, eachScreenThatStaysHasAName) {
    for (const char* screen : {"FirstLang", "Options", "Record", "Recording", "Process", "Play",
                               "Playing", "Save", "MessageAndQuit"}) {
        for (const char* language : {"en", "de", "es", "fr", "it"}) {
            EXPECT_NE("Murmelo", WindowTitle::of(on(screen, language, ""))) << screen << language;
        }
    }
}
