// SPDX-License-Identifier: MIT
// The comparison of each frame with what was painted fails where they differ.
#include "FrameCheck.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace {

constexpr int32_t kFactor = HostFrame::kCanvasFactor;
constexpr int32_t kCanvasWidthPx = HostFrame::kWidthPx / kFactor;
constexpr int32_t kCanvasHeightPx = (HostFrame::kHeightPx - HostFrame::kCanvasTopPx) / kFactor;

/// A display that shows a canvas doubled, and names the rows that its test calls changed.
class ShownCanvas : public HostFrame {
public:
    void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) override {
        const int32_t stride = strideBytes / 2;
        for (int32_t y = kCanvasTopPx; y < kHeightPx; y++) {
            for (int32_t x = 0; x < kWidthPx && rows[static_cast<size_t>(y)]; x++) {
                pixels[y * stride + x] = canvas[place(x / kFactor, (y - kCanvasTopPx) / kFactor)];
            }
        }
    }

    Rows takeChanges() override { return std::exchange(changes, Rows()); }

    static size_t place(int32_t x, int32_t y) {
        return static_cast<size_t>(y) * kCanvasWidthPx + static_cast<size_t>(x);
    }

    /// Changes a pixel of the canvas and marks its rows of the display.
    void change(int32_t x, int32_t y) {
        canvas[place(x, y)]++;
        const int32_t top = kCanvasTopPx + kFactor * y;
        for (int32_t row = top; row < top + kFactor; row++) {
            changes.set(static_cast<size_t>(row));
        }
    }

    std::vector<uint16_t> canvas = std::vector<uint16_t>(place(0, kCanvasHeightPx), 7);
    Rows changes = Rows().set();
};

class FrameCheckTest : public testing::Test {
protected:
    bool isRight() { return check.isRight(frame, frame, frame.canvas); }

    FrameCheck check;
    ShownCanvas frame;
};

}  // namespace

TEST_F(FrameCheckTest, framesThatNameEachChangedRowAreRight) {
    for (int32_t i = 0; i < 9; i++) {
        frame.change(i, 300 - i);
        EXPECT_TRUE(isRight()) << i;
    }
    EXPECT_EQ(9, check.frames());
}

TEST_F(FrameCheckTest, aFrameWithAnotherPixelThanWasPaintedIsWrong) {
    EXPECT_TRUE(isRight());
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(239, 0), std::pair(120, 319)}) {
        std::vector<uint16_t> painted = frame.canvas;
        painted[ShownCanvas::place(x, y)]++;
        EXPECT_FALSE(check.isRight(frame, frame, painted)) << x << ", " << y;
        EXPECT_TRUE(isRight());
    }
}

TEST_F(FrameCheckTest, aChangedRowThatIsNotNamedIsFoundAtOneOfTheNextTwoFrames) {
    for (const bool lower : {false, true}) {
        EXPECT_TRUE(isRight());
        frame.change(5, 100);
        frame.changes.reset(static_cast<size_t>(HostFrame::kCanvasTopPx + 200 + (lower ? 1 : 0)));
        const bool first = isRight();
        const bool second = isRight();
        EXPECT_FALSE(first && second);
        frame.changes.set();  // all is shown right again
        isRight();
        isRight();
    }
}

TEST_F(FrameCheckTest, theFrameWithTheStripNamesItsOwnChangedRows) {
    ShownCanvas shown;
    const auto isShownRight = [&] { return check.isRight(frame, shown, frame.canvas); };
    EXPECT_TRUE(isShownRight());
    shown.change(3, 3);  // as when a sheet is open over the picture
    EXPECT_TRUE(isShownRight());
    shown.change(4, 4);
    shown.changes.reset();
    const bool first = isShownRight();
    const bool second = isShownRight();
    EXPECT_FALSE(first && second);
}

TEST_F(FrameCheckTest, theFirstFrameNamesAllRows) {
    frame.changes.reset(HostFrame::kCanvasTopPx);
    EXPECT_FALSE(isRight());
}
