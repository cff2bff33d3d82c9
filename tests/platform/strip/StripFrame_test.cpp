// SPDX-License-Identifier: MIT
// The strip and its sheet are laid over the phone's frame, and only changed rows are reported.
#include "StripFrame.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// A display of one colour.
class PlainDisplay : public HostFrame {
public:
    void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) override {
        for (int32_t y = 0; y < kHeightPx; y++) {
            for (int32_t x = 0; rows.test(static_cast<size_t>(y)) && x < kWidthPx; x++) {
                pixels[y * (strideBytes / 2) + x] = colour;
            }
        }
    }

    Rows takeChanges() override {
        const Rows result = changes;
        changes.reset();
        return result;
    }

    uint16_t colour = 0xABCD;
    Rows changes = Rows().set();
};

class StripFrameTest : public ::testing::Test {
protected:
    StripFrameTest() {
        host.mapShipped();
        setScreen("en", "Play");
        frame.begin();
        frame.setDisplay(&display);
    }

    void setScreen(const std::string& language, const std::string& screen) {
        ScreenTexts texts;
        texts.language = language;
        texts.screen = screen;
        model.setScreen(texts, 0, true);
    }

    std::vector<uint16_t> compose() {
        std::vector<uint16_t> pixels(static_cast<size_t>(HostFrame::kWidthPx) *
                                     HostFrame::kHeightPx);
        frame.compose(pixels.data(), HostFrame::kWidthPx * 2);
        return pixels;
    }

    static uint16_t at(const std::vector<uint16_t>& pixels, int32_t x, int32_t y) {
        return pixels[static_cast<size_t>(y * HostFrame::kWidthPx + x)];
    }

    TestHost host;
    PlainDisplay display;
    StripModel model;
    StripFrame frame{model};
};

}  // namespace

TEST_F(StripFrameTest, theStripFillsTheBandAndThePictureStays) {
    const std::vector<uint16_t> pixels = compose();
    for (int32_t y = 0; y < HostFrame::kHeightPx; y++) {
        for (int32_t x = 0; x < HostFrame::kWidthPx; x++) {
            ASSERT_EQ(y >= 160, at(pixels, x, y) == 0xABCD) << x << "," << y;
        }
    }
}

TEST_F(StripFrameTest, eachPixelOfTheStripIsDoubled) {
    std::vector<uint16_t> strip(static_cast<size_t>(StripModel::kWidthPx * StripModel::kHeightPx));
    StripPainter().paint(model, strip.data(), StripModel::kWidthPx * 2);
    const std::vector<uint16_t> pixels = compose();
    for (int32_t y = 0; y < 160; y++) {
        for (int32_t x = 0; x < HostFrame::kWidthPx; x++) {
            ASSERT_EQ(strip[static_cast<size_t>(y / 2 * StripModel::kWidthPx + x / 2)],
                      at(pixels, x, y))
                << x << "," << y;
        }
    }
}

TEST_F(StripFrameTest, eachPixelOfTheSheetIsDoubled) {
    model.showHelp({"Keys"});
    std::vector<uint16_t> sheet(
        static_cast<size_t>(StripModel::kWidthPx * StripModel::kSheetHeightPx));
    StripPainter().paintSheet(model, sheet.data(), StripModel::kWidthPx * 2);
    const std::vector<uint16_t> pixels = compose();
    for (int32_t y = 0; y < 640; y++) {
        for (int32_t x = 0; x < HostFrame::kWidthPx; x++) {
            ASSERT_EQ(sheet[static_cast<size_t>(y / 2 * StripModel::kWidthPx + x / 2)],
                      at(pixels, x, y + 160))
                << x << "," << y;
        }
    }
}

TEST_F(StripFrameTest, aStripThatStaysHasNoChanges) {
    EXPECT_TRUE(frame.isNew());
    EXPECT_TRUE(frame.takeChanges().all());
    EXPECT_FALSE(frame.isNew());
    EXPECT_TRUE(frame.takeChanges().none());
    display.changes.set(300);
    EXPECT_EQ(1U, frame.takeChanges().count());
}

TEST_F(StripFrameTest, aMessageChangesRowsOfTheStripOnly) {
    frame.takeChanges();
    model.tell("Hello", {}, "", 0);
    EXPECT_TRUE(frame.isNew());
    const HostFrame::Rows rows = frame.takeChanges();
    EXPECT_TRUE(rows.test(10));
    EXPECT_EQ(rows.count(), (rows << (HostFrame::kHeightPx - 160)).count());
}

TEST_F(StripFrameTest, theSheetLiesOverThePictureAndGoesAgain) {
    frame.takeChanges();
    const std::vector<uint16_t> before = compose();
    model.showHelp({"Keys"});
    EXPECT_TRUE(frame.takeChanges().all());
    EXPECT_NE(0xABCD, at(compose(), 240, 500));
    model.key(StripKey::kClose);
    EXPECT_TRUE(frame.takeChanges().all());
    EXPECT_EQ(before, compose());
}

TEST_F(StripFrameTest, afterTheEndTheLastStripStays) {
    const std::vector<uint16_t> before = compose();
    frame.end();
    frame.setDisplay(nullptr);
    EXPECT_FALSE(frame.isThere());
    EXPECT_FALSE(frame.isNew());
    std::vector<uint16_t> pixels(before.size());
    frame.compose(pixels.data(), HostFrame::kWidthPx * 2);
    EXPECT_EQ(at(before, 20, 20), at(pixels, 20, 20));
}
