// SPDX-License-Identifier: MIT
// The display shows what was painted, and reports which rows may have changed.
#include "LoopHost.h"
#include "OspGraphics.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

using Osp::Graphics::Bitmap;
using Osp::Graphics::BufferInfo;
using Osp::Graphics::Canvas;
using Osp::Graphics::Color;
using Osp::Graphics::RowMarks;

namespace {

constexpr int32_t kW = HostFrame::kWidthPx;
constexpr int32_t kH = HostFrame::kHeightPx;

class OspGraphicsTest : public testing::Test {
protected:
    void SetUp() override {
        bitmap.Construct({240, 320}, Osp::Graphics::BITMAP_PIXEL_FORMAT_RGB565);
        BufferInfo info;
        bitmap.Lock(info, -1);
        pixels = reinterpret_cast<uint16_t*>(info.pPixels);
        std::mt19937 random(1);
        for (int32_t i = 0; i < 240 * 320; i++) {
            pixels[i] = static_cast<uint16_t>(random());
        }
    }

    /// All pixels of the display.
    std::vector<uint16_t> display() {
        canvas->Show();
        std::vector<uint16_t> shown(static_cast<size_t>(kW) * kH, 0x1234);
        host.frame->compose(shown.data(), kW * 2);
        return shown;
    }

    static uint16_t at(const std::vector<uint16_t>& shown, int32_t x, int32_t y) {
        return shown[static_cast<size_t>(y * kW + x)];
    }

    /// Changes a pixel of the locked bitmap.
    void change(int32_t x, int32_t y) {
        pixels[y * 240 + x] ^= 0x4210;
        RowMarks row(320);
        row.mark(y, 1);
        bitmap.Unlock(row);
    }

    LoopHost host;
    Bitmap bitmap;
    uint16_t* pixels = nullptr;
    std::unique_ptr<Canvas> canvas = std::make_unique<Canvas>();
};

}  // namespace

TEST_F(OspGraphicsTest, theUsualFrameIsADoubledPictureBetweenTwoBands) {
    canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
    canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
    const std::vector<uint16_t> shown = display();
    for (int32_t y = 0; y < kH; y++) {
        for (int32_t x = 0; x < kW; x++) {
            const uint16_t expected = y < 160 ? 0x2104 : pixels[(y - 160) / 2 * 240 + x / 2];
            ASSERT_EQ(expected, at(shown, x, y)) << x << ", " << y;
        }
    }
}

TEST_F(OspGraphicsTest, whatIsNotPaintedIsBlack) {
    const std::vector<uint16_t> shown = display();
    EXPECT_EQ(0, at(shown, 0, 0));
    EXPECT_EQ(0, at(shown, 479, 799));
}

TEST_F(OspGraphicsTest, paintingKeepsToTheClip) {
    canvas->SetClipBounds({10, 20, 5, 6});
    canvas->FillRectangle(Color(0xFFFFFFFF), {0, 0, 480, 800});
    const std::vector<uint16_t> shown = display();
    EXPECT_EQ(30, std::count(shown.begin(), shown.end(), 0xFFFF));
    EXPECT_EQ(0xFFFF, at(shown, 10, 20));
    EXPECT_EQ(0xFFFF, at(shown, 14, 25));
}

TEST_F(OspGraphicsTest, laterPaintingLiesAboveEarlier) {
    canvas->FillRectangle(Color(0xFFFF0000), {0, 0, 480, 800});
    canvas->FillRectangle(Color(0xFF00FF00), {100, 100, 10, 10});
    canvas->DrawBitmap({105, 105, 20, 20}, bitmap, {0, 0, 10, 10});
    canvas->FillRectangle(Color(0xFF0000FF), {106, 106, 1, 1});
    const std::vector<uint16_t> shown = display();
    EXPECT_EQ(0xF800, at(shown, 99, 100));
    EXPECT_EQ(0x07E0, at(shown, 104, 105));
    EXPECT_EQ(pixels[0], at(shown, 105, 105));
    EXPECT_EQ(0x001F, at(shown, 106, 106));
    EXPECT_EQ(pixels[9 * 240 + 9], at(shown, 124, 124));
}

TEST_F(OspGraphicsTest, aSpotOnOneRowOfADoubledPictureStaysOnThatRow) {
    canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
    canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
    canvas->FillRectangle(Color(0xFFFFFFFF), {10, 200, 4, 1});
    const std::vector<uint16_t> shown = display();
    EXPECT_EQ(0xFFFF, at(shown, 10, 200));
    EXPECT_EQ(pixels[20 * 240 + 5], at(shown, 10, 201));
    EXPECT_EQ(pixels[20 * 240 + 4], at(shown, 9, 200));
}

TEST_F(OspGraphicsTest, anyScaleRepeatsOrLeavesOutPixels) {
    canvas->DrawBitmap({1, 0, 7, 5}, bitmap, {3, 2, 4, 10});
    const std::vector<uint16_t> shown = display();
    for (int32_t y = 0; y < 5; y++) {
        for (int32_t x = 0; x < 7; x++) {
            EXPECT_EQ(pixels[(2 + y * 10 / 5) * 240 + 3 + x * 4 / 7], at(shown, 1 + x, y));
        }
    }
}

TEST_F(OspGraphicsTest, aSourceOutsideItsBitmapIsRefused) {
    EXPECT_NE(E_SUCCESS, canvas->DrawBitmap({0, 0, 10, 10}, bitmap, {235, 0, 10, 10}));
    EXPECT_NE(E_SUCCESS, canvas->DrawBitmap({0, 0, 10, 10}, bitmap, {0, 0, 0, 0}));
    EXPECT_NE(E_SUCCESS, Bitmap().Construct({0, 5}, Osp::Graphics::BITMAP_PIXEL_FORMAT_RGB565));
    BufferInfo info;
    EXPECT_NE(E_SUCCESS, Bitmap().Lock(info, -1));
}

TEST_F(OspGraphicsTest, moreOperationsThanAreKeptLookTheSame) {
    canvas->FillRectangle(Color(0xFF202020), {0, 0, 480, 800});
    for (int32_t i = 0; i < 50; i++) {
        canvas->FillRectangle(Color(0xFFFFFFFF), {i * 3, i * 5, 2, 2});
    }
    canvas->DrawBitmap({0, 400, 480, 400}, bitmap, {0, 0, 240, 200});
    const std::vector<uint16_t> shown = display();
    for (int32_t i = 0; i < 50; i++) {
        EXPECT_EQ(0xFFFF, at(shown, i * 3 + 1, i * 5 + 1));
        EXPECT_EQ(0x2104, at(shown, i * 3 + 2, i * 5));
    }
    EXPECT_EQ(pixels[199 * 240 + 239], at(shown, 479, 799));
}

TEST_F(OspGraphicsTest, aChangeIsSeenOnceAndOnlyInTheRowsThatShowIt) {
    auto frame = [this] {
        canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
        canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
        canvas->Show();
        return host.frame->takeChanges();
    };
    EXPECT_TRUE(frame().all());
    EXPECT_TRUE(frame().none());
    change(77, 0);
    change(239, 319);
    HostFrame::Rows expected;
    expected.set(160).set(161).set(798).set(799);
    EXPECT_EQ(expected, frame());
    EXPECT_TRUE(frame().none());
    canvas->FillRectangle(Color(0xFF101010), {0, 0, 640, 800});
    EXPECT_TRUE(host.frame->takeChanges().all());
}

TEST_F(OspGraphicsTest, whatABitmapDoesNotShowDoesNotCount) {
    canvas->DrawBitmap({0, 0, 20, 20}, bitmap, {10, 10, 20, 20});
    canvas->Show();
    host.frame->takeChanges();
    change(15, 9);
    change(15, 30);
    EXPECT_TRUE(host.frame->takeChanges().none());
    change(29, 29);
    EXPECT_EQ(HostFrame::Rows().set(19), host.frame->takeChanges());
}

TEST_F(OspGraphicsTest, changedRowsAloneMakeTheWholeNewPicture) {
    std::mt19937 random(2);
    canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
    canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
    canvas->DrawBitmap({3, 100, 111, 77}, bitmap, {20, 30, 140, 150});  // lies over its own rows
    std::vector<uint16_t> shown = display();
    host.frame->takeChanges();
    for (int32_t i = 0; i < 50; i++) {
        for (int32_t j = 0; j < 3; j++) {
            change(static_cast<int32_t>(random() % 240), static_cast<int32_t>(random() % 320));
        }
        const HostFrame::Rows changed = host.frame->takeChanges();
        EXPECT_FALSE(changed.all());
        host.frame->composeRows(shown.data(), kW * 2, changed);
        ASSERT_EQ(display(), shown) << i;
    }
}

TEST_F(OspGraphicsTest, eachCanvasSeesAChangeForItself) {
    Canvas second;
    HostFrame* frames[2] = {};
    for (Canvas* each : {canvas.get(), &second}) {
        each->DrawBitmap({0, 0, 240, 320}, bitmap, {0, 0, 240, 320});
        each->Show();
        frames[each == &second ? 1 : 0] = host.frame;
        host.frame->takeChanges();
    }
    change(1, 7);
    for (HostFrame* each : frames) {
        EXPECT_EQ(HostFrame::Rows().set(7), each->takeChanges());
        EXPECT_TRUE(each->takeChanges().none());
    }
}

TEST_F(OspGraphicsTest, aBitmapThatWasUnlockedWithoutAWordMayHaveChangedEverywhere) {
    canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
    canvas->Show();
    host.frame->takeChanges();
    bitmap.Unlock(RowMarks(320));
    EXPECT_TRUE(host.frame->takeChanges().none());
    bitmap.Unlock();
    EXPECT_EQ(640U, host.frame->takeChanges().count());
}

TEST_F(OspGraphicsTest, aScaledBitmapNamesTheRowsThatShowAChange) {
    for (const int32_t height : {1, 3, 100, 319, 320, 321, 700}) {
        canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
        canvas->DrawBitmap({0, 50, 480, height}, bitmap, {0, 10, 240, 290});
        std::vector<uint16_t> before = display();
        host.frame->takeChanges();
        for (int32_t y = 0; y < 320; y++) {
            change(y % 240, y);
            const std::vector<uint16_t> after = display();
            const HostFrame::Rows changed = host.frame->takeChanges();
            for (int32_t row = 0; row < kH; row++) {
                const bool isSame =
                    std::equal(before.begin() + row * kW, before.begin() + (row + 1) * kW,
                               after.begin() + row * kW);
                ASSERT_EQ(!isSame, changed[static_cast<size_t>(row)]) << height << ", " << row;
            }
            before = after;
        }
    }
}

TEST_F(OspGraphicsTest, rowsThatAreNotAskedForStayAsTheyAre) {
    canvas->FillRectangle(Color(0xFFFFFFFF), {0, 0, 480, 800});
    canvas->Show();
    std::vector<uint16_t> shown(static_cast<size_t>(kW) * kH, 0x1234);
    host.frame->composeRows(shown.data(), kW * 2, HostFrame::Rows().set(7));
    EXPECT_EQ(480, std::count(shown.begin(), shown.end(), 0xFFFF));
    EXPECT_EQ(0xFFFF, at(shown, 0, 7));
    EXPECT_EQ(0xFFFF, at(shown, 479, 7));
}

TEST_F(OspGraphicsTest, everySecondRowCanBeComposedWithoutAGap) {
    canvas->FillRectangle(Color(0xFF202020), {0, 0, 640, 800});
    canvas->DrawBitmap({0, 160, 480, 640}, bitmap, {0, 0, 240, 320});
    for (int32_t y = 0; y < 320; y++) {
        change(y % 240, y);
    }
    const std::vector<uint16_t> whole = display();
    HostFrame::Rows even;
    for (size_t y = 0; y < even.size(); y += 2) {
        even.set(y);
    }
    std::vector<uint16_t> half(static_cast<size_t>(kW) * kH / 2, 0x1234);
    host.frame->composeRows(half.data(), kW, even);
    for (int32_t y = 0; y < kH / 2; y++) {
        EXPECT_TRUE(std::equal(half.begin() + y * kW, half.begin() + (y + 1) * kW,
                               whole.begin() + 2 * y * kW))
            << y;
    }
}

TEST_F(OspGraphicsTest, theCanvasOutlivesItsBitmap) {
    {
        Bitmap shortLived;
        shortLived.Construct({1, 1}, Osp::Graphics::BITMAP_PIXEL_FORMAT_RGB565);
        BufferInfo info;
        shortLived.Lock(info, -1);
        *reinterpret_cast<uint16_t*>(info.pPixels) = 0xABCD;
        canvas->DrawBitmap({0, 0, 480, 800}, shortLived, {0, 0, 1, 1});
    }
    EXPECT_EQ(0xABCD, at(display(), 200, 300));
}

TEST_F(OspGraphicsTest, aCanvasThatGoesTakesItsFrameAway) {
    canvas->Show();
    EXPECT_NE(nullptr, host.frame);
    canvas.reset();
    EXPECT_EQ(nullptr, host.frame);
}

TEST_F(OspGraphicsTest, showingCanFail) {
    host.failNth("Canvas.Show", 1);
    EXPECT_NE(E_SUCCESS, canvas->Show());
    EXPECT_EQ(E_SUCCESS, canvas->Show());
}
