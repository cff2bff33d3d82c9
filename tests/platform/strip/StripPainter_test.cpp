// SPDX-License-Identifier: MIT
// The strip's texts fit their places in every language, and its pictures are painted.
#include "Host.h"
#include "HostMessage.h"
#include "HostWords.h"
#include "Languages.h"
#include "StripLayout.h"
#include "StripPainter.h"
#include "TestHost.h"
#include "TextRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int32_t kStrideBytes = StripModel::kWidthPx * 2;

const std::string kFolders[] = {
    "~/Music/Murmelo",
    "/home/somebody/Music/Murmelo",
    "/media/somebody/External Disk of Two Terabytes/Recordings/2026/November/Voices/Murmelo",
    "/srv/" + std::string(240, 'W'),
    "/a/" + std::string(37, 'm') + "/" + std::string(37, 'M') + "/Murmelo",
};

class StripPainterTest : public ::testing::Test {
protected:
    StripPainterTest() {
        host.mapShipped();
        painter = std::make_unique<StripPainter>();
    }

    TextRows::Width width() const {
        return [this](const std::string& utf8) { return painter->textWidth(utf8); };
    }

    StripModel model(const std::string& screen, const std::string& language = "en") const {
        StripModel made;
        made.setTextWidth(width());
        ScreenTexts texts;
        texts.language = language;
        texts.screen = screen;
        made.setScreen(texts, 0, true);
        return made;
    }

    std::vector<uint16_t> paint(const StripModel& model) const {
        std::vector<uint16_t> pixels(
            static_cast<size_t>(StripModel::kWidthPx * StripModel::kHeightPx));
        painter->paint(model, pixels.data(), kStrideBytes);
        return pixels;
    }

    TestHost host;
    std::unique_ptr<StripPainter> painter;
};

/// The rows of a picture in which it differs from another one.
std::vector<int32_t> rowsOfDifference(const std::vector<uint16_t>& a,
                                      const std::vector<uint16_t>& b) {
    std::vector<int32_t> rows;
    for (int32_t y = 0; y < StripModel::kHeightPx; y++) {
        const auto at = static_cast<std::ptrdiff_t>(y) * StripModel::kWidthPx;
        if (!std::equal(a.begin() + at, a.begin() + at + StripModel::kWidthPx, b.begin() + at)) {
            rows.push_back(y);
        }
    }
    return rows;
}

}  // namespace

TEST_F(StripPainterTest, wordsFitTheirButtonsInEveryLanguage) {
    for (const Language& language : Languages::kAll) {
        for (const StripButton& button : model("Play", language.code).buttons()) {
            if (button.place.y == StripLayout::kKeysTopPx) {
                EXPECT_LE(painter->textWidth(button.name),
                          button.place.w - 2 * StripLayout::kWordPadPx)
                    << language.code << " " << button.name;
                EXPECT_GT(painter->textWidth(button.name), 0) << language.code;
            }
        }
    }
}

TEST_F(StripPainterTest, hintsFitOneRowInEveryLanguage) {
    for (const Language& language : Languages::kAll) {
        StripModel pointed = model("Play", language.code);
        for (int32_t key = 0; key < StripLayout::kKeys; key++) {
            pointed.point(StripLayout::keyOf(key).x, StripLayout::kKeysTopPx);
            ASSERT_EQ(1U, pointed.lines().size());
            EXPECT_EQ(std::string::npos, pointed.lines()[0].find("…")) << pointed.lines()[0];
        }
    }
}

/// Each message is measured with the longer of the two actions.
TEST_F(StripPainterTest, messagesFitTheirRowsInEveryLanguage) {
    int32_t messages = 0;
    for (const HostWords::Row& row : HostWords::rows()) {
        if (std::string(row.name).compare(0, 4, "help") == 0) {
            continue;  // stands on the sheet
        }
        for (const Language& language : Languages::kAll) {
            for (const char* name :
                 {"Built-in Audio Analogue Stereo", "~/Music/Murmelo/rec_00003.wav"}) {
                StripModel telling = model("Play", language.code);
                StripWish action;
                action.kind = StripWish::Kind::kShowFile;
                telling.tell(HostMessage{row.name, {name, "unknown format"}}.text(language.code),
                             action, HostWords::text("show", language.code), 0);
                EXPECT_LE(telling.lines().size(), 3U);
                EXPECT_EQ(std::string::npos, telling.lines().back().find("…"))
                    << row.name << " " << language.code << " " << telling.lines().back();
            }
        }
        messages++;
    }
    EXPECT_GT(messages, 60);
}

/// Where the row above keeps two words, it gives its last one away. What follows a slash is a path.
TEST_F(StripPainterTest, noMessageLeavesAWordAloneThatCouldHaveCompany) {
    int32_t severalRows = 0;
    for (const HostWords::Row& row : HostWords::rows()) {
        for (const Language& language : Languages::kAll) {
            for (const char* name :
                 {"Built-in Audio Analogue Stereo", "~/Music/Murmelo/rec_00003.wav"}) {
                StripModel telling = model("Play", language.code);
                telling.tell(HostMessage{row.name, {name, "unknown format"}}.text(language.code),
                             {}, "", 0);
                const std::vector<std::string>& lines = telling.lines();
                if (lines.size() == 1) {
                    continue;
                }
                severalRows++;
                const std::string& last = lines.back();
                const std::string& above = lines[lines.size() - 2];
                const size_t gap = above.rfind(' ');
                if (last.find_first_of(" /") == std::string::npos && above.back() != '/' &&
                    gap != std::string::npos && above.rfind(' ', gap - 1) != std::string::npos) {
                    EXPECT_LT(StripLayout::kLinePx,
                              painter->textWidth(above.substr(gap + 1) + " " + last))
                        << row.name << " " << language.code << ": " << above << " / " << last;
                }
            }
        }
    }
    EXPECT_GT(severalRows, 100);
}

TEST_F(StripPainterTest, aMuteMicrophoneFitsBesideTheSecondsInEveryLanguage) {
    for (const Language& language : Languages::kAll) {
        StripModel mute = model("Recording", language.code);
        for (const char* name : {"", "Built-in Audio Analogue Stereo"}) {
            mute.setMicrophoneName(name);
            mute.setRecording({}, 20, true);
            EXPECT_EQ(std::string::npos, mute.lines().back().find("…")) << mute.lines().back();
            EXPECT_LE(painter->textWidth("20 s"), StripLayout::kSecondsWidthPx);
        }
    }
}

TEST_F(StripPainterTest, theHelpFitsItsSheetInEveryLanguage) {
    for (const Language& language : Languages::kAll) {
        for (const std::string& folder : kFolders) {
            StripModel helping = model("Play", language.code);
            const std::string code = language.code;
            helping.showHelp({HostWords::text("helpRecordKeys", code),
                              HostWords::text("helpMoreKeys", code),
                              HostWords::text("helpFileKeys", code),
                              HostMessage{"helpFolder", {helping.pathForHelp(folder)}}.text(code),
                              HostWords::text("helpStaysHere", code)});
            int32_t height = StripLayout::kRowsTopPx;
            for (const std::string& row : helping.sheetRows()) {
                height +=
                    row.empty() ? StripLayout::kParagraphGapPx : StripLayout::kTextRowHeightPx;
                EXPECT_LE(painter->textWidth(row), StripLayout::kSheetTextPx);
            }
            EXPECT_LE(height, StripModel::kSheetHeightPx - StripLayout::kCloseHeightPx -
                                  StripLayout::kMoreHeightPx)
                << code << " " << folder;
        }
    }
}

TEST_F(StripPainterTest, theButtonsOfTheHelpFitInEveryLanguage) {
    for (const Language& language : Languages::kAll) {
        StripModel helping = model("Play", language.code);
        helping.showHelp({});
        helping.setOffersMore(true);
        int32_t buttons = 0;
        for (const StripButton& button : helping.buttons()) {
            if (button.place.y == StripLayout::more(0).y) {
                EXPECT_LE(painter->textWidth(button.name), StripLayout::kMoreWidthPx - 6)
                    << button.name;
                buttons++;
            }
        }
        EXPECT_EQ(3, buttons);
    }
}

TEST_F(StripPainterTest, aSavedSoundIsNamedHoweverDeepItsFolderLies) {
    for (const Language& language : Languages::kAll) {
        for (const std::string& folder : kFolders) {
            StripModel telling = model("Play", language.code);
            const std::string path = telling.pathForMessage(folder + "/rec_00003.wav");
            telling.tell(HostMessage{"saved", {path}}.text(language.code),
                         StripWish::of(StripWish::Kind::kShowFile),
                         HostWords::text("show", language.code), 0);
            const std::string last = telling.lines().back();
            EXPECT_LE(telling.lines().size(), 3U);
            EXPECT_EQ("rec_00003.wav", last.substr(last.size() - 13)) << language.code << folder;
        }
    }
}

TEST_F(StripPainterTest, onlyTheHeadsChangeWithTheEffect) {
    StripModel playing = model("Play");
    const std::vector<uint16_t> before = paint(playing);
    ScreenTexts texts;
    texts.language = "en";
    texts.screen = "Play";
    playing.setScreen(texts, 5, true);
    const std::vector<int32_t> rows = rowsOfDifference(before, paint(playing));
    ASSERT_FALSE(rows.empty());
    EXPECT_GE(rows.front(), StripLayout::kHeadsTopPx);
    EXPECT_LT(rows.back(), StripLayout::kHeadsTopPx + StripLayout::kHeadHeightPx);
}

TEST_F(StripPainterTest, aLouderVoiceLightsMore) {
    StripModel recording = model("Recording");
    LevelMeter::Reading reading;
    const std::vector<uint16_t> quiet = paint(recording);
    reading.peakDb = reading.meanDb = -20;
    recording.setRecording(reading, 0, false);
    const std::vector<uint16_t> loud = paint(recording);
    const auto brightness = [](const std::vector<uint16_t>& pixels) {
        int64_t green = 0;
        for (const uint16_t pixel : pixels) {
            green += pixel >> 5 & 0x3F;
        }
        return green;
    };
    EXPECT_GT(brightness(loud), brightness(quiet));
}

TEST_F(StripPainterTest, nothingIsWrittenBesideTheRows) {
    constexpr int32_t kPaddedPx = StripModel::kWidthPx + 4;
    std::vector<uint16_t> pixels(static_cast<size_t>(kPaddedPx * StripModel::kHeightPx), 0x1234);
    painter->paint(model("Play"), pixels.data(), kPaddedPx * 2);
    for (int32_t y = 0; y < StripModel::kHeightPx; y++) {
        for (int32_t x = StripModel::kWidthPx; x < kPaddedPx; x++) {
            ASSERT_EQ(0x1234, pixels[static_cast<size_t>(y * kPaddedPx + x)]) << x << "," << y;
        }
    }
}

TEST_F(StripPainterTest, missingPicturesLeaveTheGlass) {
    host.mappedFolders.res = "/nowhere";
    StripPainter poor;
    std::vector<uint16_t> pixels(static_cast<size_t>(StripModel::kWidthPx * StripModel::kHeightPx));
    StripModel playing = model("Play");
    poor.paint(playing, pixels.data(), kStrideBytes);
    EXPECT_NE(0, pixels[StripModel::kWidthPx]);
    EXPECT_EQ(0, poor.textWidth("Save"));
}

TEST_F(StripPainterTest, aTextOfAnyBytesIsPainted) {
    StripModel playing = model("Play");
    playing.tell("\xFF\xC3 \x80\xF0\x9F\x8E\xA4 Ω\n\t", {}, "", 0);
    EXPECT_NE(paint(model("Play")), paint(playing));
}

TEST_F(StripPainterTest, theFocusIsSeenWhereItIsAndOnlyThere) {
    StripModel made = model("Play");
    made.setMicrophones({"Built-in", "Headset"}, 0);
    made.showMicrophones();
    const auto sheet = [&] {
        std::vector<uint16_t> pixels(
            static_cast<size_t>(StripModel::kWidthPx * StripModel::kSheetHeightPx));
        painter->paintSheet(made, pixels.data(), kStrideBytes);
        return pixels;
    };
    const std::vector<uint16_t> without = sheet();
    for (int32_t i = 0; i < 4; i++) {
        made.navigate(HostKey::kDown);
        const ScreenPlace place = made.shownFocus().place;
        const std::vector<uint16_t> with = sheet();
        int32_t changed = 0;
        for (size_t at = 0; at < with.size(); at++) {
            const int32_t y =
                static_cast<int32_t>(at) / StripModel::kWidthPx + StripModel::kHeightPx;
            if (with[at] != without[at]) {
                changed++;
                ASSERT_TRUE(y >= place.y && y < place.y + place.h) << made.shownFocus().name;
            }
        }
        EXPECT_LT(StripModel::kWidthPx, changed) << made.shownFocus().name;
    }
}
