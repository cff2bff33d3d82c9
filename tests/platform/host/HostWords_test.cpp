// SPDX-License-Identifier: MIT
// Every text of the host exists in every language, with the program's own words.
#include "FxCatalogue.h"
#include "HostWords.h"
#include "ScreenNames.h"
#include "ScreenTable.h"
#include "StrTexts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

namespace {

/// A text of the program itself. @param name of its id, such as "SK_STOP"
const char* textOfProgram(const std::string& name, size_t language) {
    int32_t count = 0;
    const StrTexts* rows = StrTexts::rows(count);
    for (int32_t i = 0; i < count; i++) {
        if (name == rows[i].name) {
            return rows[i].texts.utf8[language];
        }
    }
    return "";
}

}  // namespace

TEST(HostWords, eachHasANameOfItsOwnAndATextInEachLanguage) {
    std::set<std::string> names;
    for (const HostWords::Row& row : HostWords::rows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        for (const char* text : row.texts) {
            EXPECT_STRNE("", text) << row.name;
        }
    }
}

TEST(HostWords, areFoundByNameAndLanguage) {
    EXPECT_STREQ("Save", HostWords::text("save", "en"));
    EXPECT_STREQ("Speichern", HostWords::text("save", "de"));
    EXPECT_STREQ("Guardar", HostWords::text("save", "es"));
    EXPECT_STREQ("Sauver", HostWords::text("save", "fr"));
    EXPECT_STREQ("Salva", HostWords::text("save", "it"));
}

TEST(HostWords, areEnglishInAnUnknownLanguageAndEmptyForAnUnknownName) {
    EXPECT_STREQ("Save", HostWords::text("save", "tlh"));
    EXPECT_STREQ("", HostWords::text("no such name", "en"));
}

TEST(HostWords, useTypographicApostrophesAndQuotes) {
    for (const HostWords::Row& row : HostWords::rows()) {
        for (const char* text : row.texts) {
            EXPECT_EQ(std::string::npos, std::string(text).find_first_of("'\"")) << text;
        }
    }
}

TEST(HostWords, keepFrenchSignsBesideTheirWord) {
    constexpr size_t kFrench = 3;
    int32_t signs = 0;
    for (const HostWords::Row& row : HostWords::rows()) {
        const std::string text = row.texts[kFrench];
        EXPECT_EQ(std::string::npos, text.find("« ")) << text;
        for (const char* sign : {":", ";", "?", "!", "»"}) {
            for (size_t at = text.find(sign); at != std::string::npos;
                 at = text.find(sign, at + 1)) {
                const bool isKey = at >= 1 && text[at - 1] == '(';  // the key "?"
                EXPECT_TRUE(isKey || (at >= 2 && text.compare(at - 2, 2, "\u00A0") == 0)) << text;
                signs++;
            }
        }
    }
    EXPECT_GT(signs, 20);
}

TEST(HostWords, callThingsAsTheProgramDoes) {
    for (size_t i = 0; i < Languages::kCount; i++) {
        const std::string code = Languages::kAll[i].code;
        for (const auto& [word, programs] :
             {std::pair("help", "MI_HELP"), std::pair("play", "SK_PLAY"),
              std::pair("stop", "SK_STOP"), std::pair("screenFirstLang", "MI_LANGUAGE"),
              std::pair("screenOptions", "SK_MENU"), std::pair("screenPlaying", "LBL_PLAYING")}) {
            EXPECT_STREQ(textOfProgram(programs, i), HostWords::text(word, code)) << code;
        }
        // The key has no room for the whole French word.
        EXPECT_STREQ(code == "fr" ? "Sauver" : textOfProgram("MI_SAVE", i),
                     HostWords::text("save", code));
    }
}

TEST(HostWords, nameTheDigitOfTheLastEffect) {
    const std::string digit = std::to_string(FxCatalogue::kCount);
    for (const Language& language : Languages::kAll) {
        const std::string help = HostWords::text("helpRecordKeys", language.code);
        EXPECT_NE(std::string::npos, help.find(digit)) << help;
    }
}

TEST(HostWords, nameEachScreenThatStays) {
    int32_t count = 0;
    const ScreenTable::Row* rows = ScreenTable::rows(count);
    for (int32_t i = 0; i < count; i++) {
        const std::string name = rows[i].name;
        if (name != ScreenNames::kSplash) {
            EXPECT_STRNE("", HostWords::text("screen" + name, "en")) << name;
        }
    }
}
