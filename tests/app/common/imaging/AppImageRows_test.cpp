// SPDX-License-Identifier: MIT
// Every operation that may change a pixel of a watched image marks its row, and no other row.
#include "AppImage.h"
#include "BitMapCharacter.h"
#include "ImageOps.h"
#include "PixelModel.h"
#include "PixProps.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using Osp::Graphics::RowMarks;

namespace {

constexpr int32_t kW = 16;
constexpr int32_t kH = 24;

class AppImageRows : public testing::Test {
protected:
    void SetUp() override {
        image.set(0xFF204060);
        image.watchRows(&marks);
        source.set(0x80808080);
    }

    /// Calls draw, and checks that exactly the rows first .. last have changed and are marked.
    void expectRows(int32_t first, int32_t last, const std::function<void()>& draw) {
        marks.clear();
        const std::vector<uint32_t> before = model::pixelsOf(image);
        draw();
        for (int32_t y = 0; y < kH; y++) {
            const bool differs = !std::equal(before.begin() + y * kW, before.begin() + (y + 1) * kW,
                                             image.pixels.get() + y * kW);
            const RowMarks::Run run = marks.next(y);
            const bool isMarked = run.count > 0 && run.first == y;
            EXPECT_EQ(y >= first && y <= last, differs) << "row " << y;
            EXPECT_EQ(differs, isMarked) << "row " << y;
        }
    }

    AppImage image{kW, kH};
    AppImage source{kW, kH};
    RowMarks marks{kH};
};

}  // namespace

TEST_F(AppImageRows, allRowsCountAsNewWhenWatchingBegins) {
    marks.clear();
    image.watchRows(&marks);
    EXPECT_EQ(0, marks.next(0).first);
    EXPECT_EQ(kH, marks.next(0).count);
}

TEST_F(AppImageRows, nobodyHearsOfAnImageThatIsNotWatchedAnyMore) {
    image.watchRows(nullptr);
    marks.clear();
    image.set(0xFFFFFFFF);
    EXPECT_TRUE(marks.none());
}

TEST_F(AppImageRows, onePixel) {
    expectRows(5, 5, [this] { image.set(0xFFFFFFFF, 3, 5); });
    expectRows(23, 23, [this] { image.blend(0x40404040, 15, 23); });
}

TEST_F(AppImageRows, rectanglesOfAColour) {
    expectRows(2, 6, [this] { image.set(0xFFFFFFFF, 1, 2, 3, 5); });
    expectRows(7, 8, [this] { image.blend(0x40404040, 1, 7, 3, 2); });
    expectRows(9, 9, [this] { image.blend(0xFF404040, 1, 9, 3, 1); });
    PixProps half;
    half.opacity = 128;
    expectRows(10, 11, [this, &half] { image.blend(0xFF808080, 1, 10, 3, 2, &half); });
}

TEST_F(AppImageRows, nothingDrawnMarksNothing) {
    expectRows(0, -1, [this] {
        image.blend(0x00404040, 1, 7, 3, 2);
        image.set(0xFFFFFFFF, 1, 2, 0, 5);
        image.blend(&source, 0, 0, 4, 4, 0, 0, 0);
    });
}

TEST_F(AppImageRows, partsOfAnImage) {
    expectRows(3, 5, [this] { image.set(&source, 0, 0, 4, 3, 2, 3); });
    expectRows(6, 8, [this] { image.blend(&source, 0, 0, 4, 3, 2, 6); });
    expectRows(9, 11, [this] { image.blend(&source, 0, 0, 4, 3, 2, 9, 100); });
    PixProps dark;
    dark.lightness = 100;
    expectRows(12, 14, [this, &dark] { image.blend(&source, 0, 0, 4, 3, 2, 12, &dark); });
    expectRows(15, 17, [this] { image.blend(0xFFFFFFFF, &source, 0, 0, 4, 3, 2, 15, nullptr); });
    source.opaque = true;
    expectRows(18, 20, [this] { image.blend(&source, 0, 0, 4, 3, 2, 18); });
}

TEST_F(AppImageRows, allPixels) {
    expectRows(0, kH - 1, [this] { image.set(0x80FFFFFF); });
    expectRows(0, kH - 1, [this] { image.premult(); });
    expectRows(0, kH - 1, [this] { image.set(0x80404040); });
    expectRows(0, kH - 1, [this] { image.unpremult(); });
    expectRows(0, kH - 1, [this] { image.set(&source); });
    image.set(0xFF000000);
    expectRows(0, kH - 1, [this] { image.set(&source, 0, 0); });
}

TEST_F(AppImageRows, aNewSizeIsNewEverywhere) {
    marks.clear();
    image.allocate(kH, kW);  // as many pixels in other rows
    EXPECT_EQ(kW, marks.next(0).count);
    marks.clear();
    image.allocate(kW, kH - 1);
    EXPECT_EQ(kH - 1, marks.next(0).count);
}

TEST_F(AppImageRows, inkOfACharacter) {
    const std::vector<signed char> ink(4 * 5, 15);
    BitMapCharacter glyph('a', ink.data(), 4, 5, 4, 0, 0);
    const auto draw = [&](int32_t x, int32_t y) {
        glyph.draw(&image, x, y, 0, 0, kW, kH - 2, 0xFFFFFFFF);
    };
    expectRows(3, 7, [&] { draw(2, 3); });
    expectRows(0, 1, [&] { draw(8, -3); });
    expectRows(20, 21, [&] { draw(8, 20); });  // cut by the clip
    expectRows(0, -1, [&] { draw(8, 24); });
}

TEST_F(AppImageRows, aStripAtASixteenthOfItsWidth) {
    AppImage strip(32, 3, 0xFFFFFFFF);
    expectRows(4, 6, [&] { ImageOps::copyWidth16To1(&strip, &image, 0, 4); });
}

TEST_F(AppImageRows, whoeverAsksToWriteThemHasChangedThem) {
    expectRows(4, 6, [this] { std::fill_n(image.writableRows(4, 3), 3 * kW, 0xFFFFFFFF); });
}
