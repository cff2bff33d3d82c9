#include "StripTexts.h"

#include <gtest/gtest.h>

#include <string>

namespace {

bool has(StripText id, const std::string& language, const char* part) {
    return std::string(StripTexts::text(id, language)).find(part) != std::string::npos;
}

}  // namespace

TEST(StripTexts, everyTextIsTranslatedAndAsksForTheSameParts) {
    for (int32_t i = 0; i < static_cast<int32_t>(StripText::kCount); i++) {
        const auto id = static_cast<StripText>(i);
        for (const Language& language : Languages::kAll) {
            EXPECT_STRNE("", StripTexts::text(id, language.code)) << i << language.code;
            for (const char* part : {"%1", "%2", "%3"}) {
                EXPECT_EQ(has(id, "en", part), has(id, language.code, part)) << i << language.code;
            }
        }
    }
}

TEST(StripTexts, partsTakeTheirPlaces) {
    EXPECT_EQ("Disk full: 6.4 of 9 seconds kept",
              StripTexts::sentence(StripText::kDiskFull, "en", {"6.4", "9"}));
    EXPECT_EQ("a%2.wav is no sound: 100 % wrong",
              StripTexts::sentence(StripText::kNoSound, "en", {"a%2.wav", "100 % wrong"}));
}

TEST(StripTexts, anUnknownLanguageIsEnglish) {
    EXPECT_STREQ("Show", StripTexts::text(StripText::kShow, "xx"));
    EXPECT_STREQ("Zeigen", StripTexts::text(StripText::kShow, "de"));
}
