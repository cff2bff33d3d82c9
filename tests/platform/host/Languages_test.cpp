// SPDX-License-Identifier: MIT
// The tests run for each language of the program, in its order.
#include "Languages.h"

#include <gtest/gtest.h>

#include <string>

TEST(Languages, areThoseForWhichTestsRun) {
    std::string codes;
    for (const Language& language : Languages::kAll) {
        codes += (codes.empty() ? "" : " ") + std::string(language.code);
    }
    EXPECT_EQ(MURMELO_LANGUAGES, codes) << "cmake/languages.txt has other languages";
}
