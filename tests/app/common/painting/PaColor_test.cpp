// SPDX-License-Identifier: MIT
// A coloured rectangle fills exactly its place inside the clip.
#include "AppImage.h"
#include "Bounds.h"
#include "PaColor.h"
#include "PixProps.h"

#include <gtest/gtest.h>

namespace {

constexpr uint32_t kGround = 0xFF102030;
constexpr uint32_t kRed = 0xFFFF0000;

/// The bounding box (x, y, w, h) of the pixels of an 8 x 6 image that were painted.
std::vector<int32_t> changedBox(AppImage& image) {
    Bounds box;
    for (int32_t y = 0; y < image.h; y++) {
        for (int32_t x = 0; x < image.w; x++) {
            if (image.get(x, y) != kGround) {
                Bounds pixel(x, y, 1, 1);
                Bounds::union_(&box, &pixel);
            }
        }
    }
    return {box.x, box.y, box.w, box.h};
}

std::vector<int32_t>
paintedBox(const std::vector<int32_t>& rect, int32_t x, int32_t y, const std::vector<int32_t>& c) {
    AppImage image(8, 6, kGround);
    PaColor painter;
    painter.set(kRed);
    Bounds::set(&painter, rect[0], rect[1], rect[2], rect[3]);
    Bounds clip(c[0], c[1], c[2], c[3]);
    painter.paintOn(&image, x, y, &clip, nullptr);
    return changedBox(image);
}

const std::vector<int32_t> kEverywhere = {-100, -100, 200, 200};
const std::vector<int32_t> kNothing = {0, 0, 0, 0};

}  // namespace

TEST(PaColor, fillsItsRectangleShifted) {
    EXPECT_EQ((std::vector<int32_t>{3, 3, 2, 1}), paintedBox({1, 1, 2, 1}, 2, 2, kEverywhere));
}

TEST(PaColor, isCutToTheImage) {
    EXPECT_EQ((std::vector<int32_t>{0, 0, 2, 2}), paintedBox({-1, -1, 3, 3}, 0, 0, kEverywhere));
    EXPECT_EQ((std::vector<int32_t>{7, 5, 1, 1}), paintedBox({7, 5, 9, 9}, 0, 0, kEverywhere));
}

TEST(PaColor, isCutToTheClip) {
    EXPECT_EQ((std::vector<int32_t>{2, 1, 3, 2}), paintedBox({0, 0, 8, 6}, 0, 0, {2, 1, 3, 2}));
}

TEST(PaColor, outsideTheClipNothingIsDrawnAndOnlyPooledRectanglesAreUsed) {
    paintedBox({0, 0, 1, 1}, 0, 0, kEverywhere);  // fills the pool
    Bounds::printNumRecycled(false);
    EXPECT_EQ(kNothing, paintedBox({0, 0, 2, 2}, 0, 0, {2, 0, 3, 3}));
    EXPECT_EQ(0, Bounds::printNumRecycled(true));
}

TEST(PaColor, isBlendedWhereItIsTransparent) {
    AppImage image(1, 1, 0xFF000000);
    AppImage expected(1, 1, 0xFF000000);
    Bounds clip(0, 0, 1, 1);
    PaColor painter;
    painter.set(0x80400000);
    Bounds::set(&painter, 0, 0, 1, 1);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    expected.blend(0x80400000, 0, 0);
    EXPECT_EQ(expected.get(0, 0), image.get(0, 0));
}

TEST(PaColor, onlyInheritedModifiersCount) {
    Bounds clip(0, 0, 1, 1);
    PaColor painter;
    painter.set(kRed);
    Bounds::set(&painter, 0, 0, 1, 1);
    PixProps invisible(256, 256, 0);
    painter.setPixProps(&invisible);
    AppImage image(1, 1, kGround);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(kRed, image.get(0, 0));
    image.set(kGround);
    painter.paintOn(&image, 0, 0, &clip, &invisible);
    EXPECT_EQ(kGround, image.get(0, 0));
}

TEST(PaColor, keepsACopyOfItsModifiers) {
    PaColor painter;
    EXPECT_TRUE(painter.getPixProps()->isDefault());
    {
        PixProps given(100, 110, 120);
        painter.setPixProps(&given);
    }
    EXPECT_EQ(100, painter.getPixProps()->lightness);
    EXPECT_EQ(120, painter.getPixProps()->opacity);
    painter.setPixProps(nullptr);
    EXPECT_TRUE(painter.getPixProps()->isDefault());
}

TEST(PaColor, answersItsRectangle) {
    PaColor painter;
    Bounds::set(&painter, 1, 2, 3, 4);
    EXPECT_EQ(1, painter.getX());
    EXPECT_EQ(2, painter.getY());
    EXPECT_EQ(3, painter.getWidth());
    EXPECT_EQ(4, painter.getHeight());
}
