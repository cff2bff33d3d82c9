#include "HostWords.h"

#include <gtest/gtest.h>

#include <set>

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
    EXPECT_STREQ("Sichern", HostWords::text("save", "de"));
    EXPECT_STREQ("Guardar", HostWords::text("save", "es"));
    EXPECT_STREQ("Sauver", HostWords::text("save", "fr"));
    EXPECT_STREQ("Salva", HostWords::text("save", "it"));
}

TEST(HostWords, areEnglishInAnUnknownLanguageAndEmptyForAnUnknownName) {
    EXPECT_STREQ("Save", HostWords::text("save", "tlh"));
    EXPECT_STREQ("", HostWords::text("no such name", "en"));
}

TEST(HostWords, useTypographicApostrophes) {
    for (const HostWords::Row& row : HostWords::rows()) {
        for (const char* text : row.texts) {
            EXPECT_EQ(std::string::npos, std::string(text).find('\'')) << text;
        }
    }
}
