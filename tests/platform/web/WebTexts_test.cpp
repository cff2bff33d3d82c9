// SPDX-License-Identifier: MIT
// The texts of screen and strip become JSON, only if they are new.
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
    // A literal causes a false warning of gcc about an uninitialised value.
    texts.language = std::string("de");
    texts.screen = "Options";
    texts.entries = {{"Aufnahme", {10, 89, 220, 31}, true}};
    texts.progressQ10 = 512;
    texts.softKeys[1] = {"Wählen", {80, 288, 80, 32}};
    EXPECT_EQ("{\"language\":\"de\",\"screen\":\"Options\",\"title\":\"\",\"arrows\":[],"
              "\"heading\":\"\",\"message\":\"\",\"isQuestion\":false,"
              "\"entries\":[{\"text\":\"Aufnahme\",\"place\":[10,89,220,31],\"isFocused\":true}],"
              "\"caption\":\"\",\"progressPercent\":50,"
              "\"softKeys\":[{\"text\":\"\",\"place\":[0,0,0,0],\"isFocused\":false},"
              "{\"text\":\"Wählen\",\"place\":[80,288,80,32],\"isFocused\":false},"
              "{\"text\":\"\",\"place\":[0,0,0,0],\"isFocused\":false}]}",
              WebTexts::toJson(texts));
}

TEST(WebTexts, areMadeOnlyWhenTheyAreNew) {
    WebTexts teller;
    ScreenTexts texts;
    const char* first = teller.ifNew(texts, "{}");
    ASSERT_NE(nullptr, first) << "also an empty screen is told once";
    const std::string json = WebTexts::toJson(texts);
    EXPECT_EQ(json.substr(0, json.size() - 1) + ",\"strip\":{}}", first);
    EXPECT_EQ(nullptr, teller.ifNew(texts, "{}"));
    texts.softKeys[0].place.x++;
    EXPECT_NE(nullptr, teller.ifNew(texts, "{}"));
    EXPECT_EQ(nullptr, teller.ifNew(texts, "{}"));
}

TEST(WebTexts, areNewWhenOnlyTheStripIs) {
    WebTexts teller;
    ASSERT_NE(nullptr, teller.ifNew({}, "{}"));
    EXPECT_EQ(nullptr, teller.ifNew({}, "{}"));
    EXPECT_NE(nullptr, teller.ifNew({}, "{\"line\":\"\"}"));
}

TEST(WebTexts, nameTheButtonsOfTheStripAboveTheCanvas) {
    StripModel model;
    model.tell("Deleted", StripWish::of(StripWish::Kind::kHostsOwn, 3), "Undo", 0);
    const std::string json = WebTexts::stripJson(model);
    EXPECT_EQ(0U, json.find("{\"line\":\"Deleted\",\"isTelling\":true,\"sheet\":\"\",")) << json;
    EXPECT_NE(std::string::npos, json.find("\"id\":\"action\",\"isEnabled\":true")) << json;
    EXPECT_NE(std::string::npos,
              json.find("{\"text\":\"Save\",\"place\":[0,-32,56,31],\"isFocused\":false,"
                        "\"id\":\"save\",\"isEnabled\":false}"))
        << json;
}

TEST(WebTexts, sayWhatStandsOnTheSheet) {
    StripModel model;
    model.setTextWidth([](const std::string&) { return 1; });
    model.showHelp({"One.", "Two."});
    const std::string json = WebTexts::stripJson(model);
    EXPECT_NE(std::string::npos, json.find("\"sheet\":\"Help. One. Two.\"")) << json;
    EXPECT_NE(std::string::npos, json.find("\"place\":[0,288,240,32]")) << json;
}

TEST(WebTexts, tellProgressInEighths) {
    WebTexts teller;
    ScreenTexts texts;
    std::string told;
    for (int32_t progressQ10 = 0; progressQ10 <= 1024; progressQ10++) {
        texts.progressQ10 = progressQ10;
        const char* json = teller.ifNew(texts, "{}");
        if (json != nullptr) {
            const std::string name = "progressPercent\":";
            told += std::string(json).substr(std::string(json).find(name) + name.size());
            told.resize(told.find(',', told.rfind(' ') + 1));
            told += ' ';
        }
    }
    EXPECT_EQ("0 12 25 37 50 62 75 87 100 ", told);
}
