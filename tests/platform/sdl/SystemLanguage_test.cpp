// SPDX-License-Identifier: MIT
// The first start takes the language that the environment names.
#include "SystemLanguage.h"

#include <gtest/gtest.h>

namespace {

constexpr int32_t kEnglish = 0;
constexpr int32_t kGerman = 1;
constexpr int32_t kSpanish = 2;
constexpr int32_t kFrench = 3;
constexpr int32_t kItalian = 4;

}  // namespace

TEST(SystemLanguage, isThatOfTheFirstVariableThatIsSet) {
    EXPECT_EQ(kGerman, SystemLanguage::indexOf({"", "", "", "de_AT.UTF-8"}));
    EXPECT_EQ(kSpanish, SystemLanguage::indexOf({"", "", "es_MX", "de_AT.UTF-8"}));
    EXPECT_EQ(kFrench, SystemLanguage::indexOf({"", "fr", "es_MX", "de_AT.UTF-8"}));
    EXPECT_EQ(kItalian, SystemLanguage::indexOf({"", "", "", "it_IT@euro"}));
}

TEST(SystemLanguage, aListComesBeforeThem) {
    EXPECT_EQ(kItalian, SystemLanguage::indexOf({"it:de", "", "", "de_DE.UTF-8"}));
    EXPECT_EQ(kGerman, SystemLanguage::indexOf({"nl:de_CH:it", "", "", "nl_NL.UTF-8"}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({"it", "C", "", "de_DE.UTF-8"}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({"it", "C.UTF-8", "", ""}));
}

TEST(SystemLanguage, whatTheProgramDoesNotSpeakIsEnglish) {
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({"", "", "", "POSIX"}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({"", "", "", "nl_NL.UTF-8"}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({"", "", "", "den_XX"}));
    EXPECT_EQ(kEnglish, SystemLanguage::indexOf({":::", "", "", "nl"}));
}
