// SPDX-License-Identifier: MIT
// The window's title names the screen and the effect in the program's language.
#include "HostWords.h"
#include "Languages.h"
#include "ScreenNames.h"
#include "ScreenTable.h"
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
    int32_t count = 0;
    const ScreenTable::Row* rows = ScreenTable::rows(count);
    for (int32_t i = 0; i < count; i++) {
        for (const Language& language : Languages::kAll) {
            const std::string title = WindowTitle::of(on(rows[i].name, language.code, ""));
            EXPECT_EQ(rows[i].name == std::string(ScreenNames::kSplash), title == "Murmelo")
                << rows[i].name << " " << language.code;
        }
    }
}
