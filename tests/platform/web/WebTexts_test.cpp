#include "WebTexts.h"

#include <gtest/gtest.h>

TEST(WebTexts, quotesWhatJsonWantsQuoted) {
    EXPECT_EQ("\"\"", WebTexts::quoted(""));
    EXPECT_EQ("\"Wählen\"", WebTexts::quoted("Wählen"));
    EXPECT_EQ("\"a\\\"b\\\\c\"", WebTexts::quoted("a\"b\\c"));
    EXPECT_EQ("\"one\\u000atwo\\u001f\"", WebTexts::quoted("one\ntwo\x1F"));
}

TEST(WebTexts, nameTheFieldsOfAScreen) {
    ScreenTexts texts;
    texts.language =
        std::string("de");  // a literal confuses gcc's search for what is not initialised
    texts.screen = "Options";
    texts.entries = {{"Aufnahme", {10, 89, 220, 31}, true}};
    texts.progressQ10 = 512;
    texts.softKeys[1] = {"Wählen", {80, 288, 80, 32}};
    EXPECT_EQ("{\"language\":\"de\",\"screen\":\"Options\",\"title\":\"\",\"arrows\":[],"
              "\"heading\":\"\",\"message\":\"\",\"isQuestion\":false,"
              "\"entries\":[{\"text\":\"Aufnahme\",\"place\":[10,89,220,31],\"isFocused\":true}],"
              "\"caption\":\"\",\"progressQ10\":512,"
              "\"softKeys\":[{\"text\":\"\",\"place\":[0,0,0,0],\"isFocused\":false},"
              "{\"text\":\"Wählen\",\"place\":[80,288,80,32],\"isFocused\":false},"
              "{\"text\":\"\",\"place\":[0,0,0,0],\"isFocused\":false}]}",
              WebTexts::toJson(texts));
}
