// SPDX-License-Identifier: MIT
// Strip and picture are placed correctly in windows of all sizes.
#include "WindowLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace {

constexpr int32_t kSizes[] = {120, 200, 240, 241, 320, 333, 360,  400,  480,  481,  568,  576,
                              640, 700, 719, 720, 800, 960, 1080, 1200, 1280, 1920, 2160, 3840};

/// The size of a display pixel in the window, in the better of the two arrangements.
double bestScale(int32_t width, int32_t height) {
    const double stacked = std::min(width / 480.0, height / 800.0);
    const double sideBySide = std::min(width / 960.0, height / 640.0);
    return std::max(stacked, sideBySide);
}

bool isIn(const PicturePlace& place, int32_t width, int32_t height) {
    return place.x >= 0 && place.y >= 0 && place.width > 0 && place.height > 0 &&
           place.x + place.width <= width && place.y + place.height <= height;
}

bool meet(const PicturePlace& a, const PicturePlace& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

bool isSideBySide(const WindowLayout& layout) {
    return layout.strip().x < layout.picture().x;
}

template <typename Check>
void inAllSizes(Check check) {
    for (const int32_t width : kSizes) {
        for (const int32_t height : kSizes) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            check(width, height, WindowLayout(width, height));
        }
    }
}

}  // namespace

TEST(WindowLayout, thePhonesOwnSizeIsThePhonesDisplay) {
    const WindowLayout layout(480, 800);
    EXPECT_EQ((PicturePlace{0, 0, 480, 160}), layout.strip());
    EXPECT_EQ((PicturePlace{0, 160, 480, 640}), layout.picture());
}

TEST(WindowLayout, inAWideWindowTheStripStandsBesideThePicture) {
    const WindowLayout layout(1920, 1080);
    EXPECT_EQ((PicturePlace{960, 0, 810, 1080}), layout.picture());
    EXPECT_EQ((PicturePlace{150, 405, 810, 270}), layout.strip());
}

TEST(WindowLayout, tallWindowsAreFilledFromSideToSide) {
    // 700 / 480 of 800 is 1166 2/3 high, of 160 is 233 1/3; what is left over is halved.
    const WindowLayout tablet(700, 1200);
    EXPECT_EQ((PicturePlace{0, 17, 700, 233}), tablet.strip());
    EXPECT_EQ((PicturePlace{0, 250, 700, 933}), tablet.picture());
    // 2 / 3 of 800 is 533 1/3, of 160 is 106 2/3.
    const WindowLayout phone(320, 568);
    EXPECT_EQ((PicturePlace{0, 17, 320, 107}), phone.strip());
    EXPECT_EQ((PicturePlace{0, 124, 320, 426}), phone.picture());
}

TEST(WindowLayout, exactMultiplesAreExact) {
    for (int32_t factor = 1; factor <= 8; factor++) {
        const WindowLayout high(240 * factor, 400 * factor);
        EXPECT_EQ((PicturePlace{0, 0, 240 * factor, 80 * factor}), high.strip());
        EXPECT_EQ((PicturePlace{0, 80 * factor, 240 * factor, 320 * factor}), high.picture());
        const WindowLayout wide(480 * factor, 320 * factor);
        EXPECT_EQ((PicturePlace{0, 120 * factor, 240 * factor, 80 * factor}), wide.strip());
        EXPECT_EQ((PicturePlace{240 * factor, 0, 240 * factor, 320 * factor}), wide.picture());
    }
}

TEST(WindowLayout, bothPartsLieInTheWindowAndBesideEachOther) {
    inAllSizes([](int32_t width, int32_t height, const WindowLayout& layout) {
        EXPECT_TRUE(isIn(layout.strip(), width, height));
        EXPECT_TRUE(isIn(layout.picture(), width, height));
        EXPECT_FALSE(meet(layout.strip(), layout.picture()));
    });
}

TEST(WindowLayout, theyAreAsLargeAsTheWindowLetsThemBe) {
    inAllSizes([](int32_t width, int32_t height, const WindowLayout& layout) {
        const double scale = bestScale(width, height);
        // Rounding may lose half a pixel of the window, and another half between strip and picture.
        EXPECT_NEAR(scale * 480, layout.picture().width, 1);
        EXPECT_NEAR(scale * 640, layout.picture().height, 1.5);
        EXPECT_NEAR(scale * 480, layout.strip().width, 1);
        EXPECT_NEAR(scale * 160, layout.strip().height, 1);
    });
}

TEST(WindowLayout, theyLieInTheMiddleOfTheWindow) {
    inAllSizes([](int32_t width, int32_t height, const WindowLayout& layout) {
        const PicturePlace& strip = layout.strip();
        const PicturePlace& picture = layout.picture();
        EXPECT_NEAR(strip.x, width - picture.x - picture.width, 2);
        const int32_t above = isSideBySide(layout) ? picture.y : strip.y;
        EXPECT_NEAR(above, height - picture.y - picture.height, 2);
        if (isSideBySide(layout)) {
            EXPECT_NEAR(strip.y, height - strip.y - strip.height, 2);
        }
    });
}

TEST(WindowLayout, eachPlaceOfAPartIsAPixelOfThatPartAndNoOther) {
    inAllSizes([](int32_t width, int32_t height, const WindowLayout& layout) {
        for (int32_t y = 0; y < height; y += 7) {
            for (int32_t x = 0; x < width; x += 13) {
                const DisplayPoint point = layout.at(x + 0.5, y + 0.5);
                const bool onStrip = layout.strip().contains(x + 0.5, y + 0.5);
                const bool onPicture = layout.picture().contains(x + 0.5, y + 0.5);
                ASSERT_EQ(onStrip, point.part == WindowPart::kStrip);
                ASSERT_EQ(onPicture, point.part == WindowPart::kPicture);
                if (onStrip || onPicture) {
                    ASSERT_TRUE(point.x >= 0 && point.x < 480);
                    ASSERT_TRUE(point.y >= (onStrip ? 0 : 160) && point.y < (onStrip ? 160 : 800));
                } else {
                    ASSERT_TRUE(point.x == -1 && point.y == -1);
                }
            }
        }
    });
}

TEST(WindowLayout, fromAPixelOfTheDisplayToTheWindowAndBackIsTheSamePixel) {
    inAllSizes([](int32_t, int32_t, const WindowLayout& layout) {
        for (const auto& [x, y] : {std::pair{0, 0},
                                   {479, 159},
                                   {0, 160},
                                   {479, 799},
                                   {211, 97},
                                   {33, 444},
                                   {240, 480},
                                   {479, 160},
                                   {0, 799}}) {
            const bool onStrip = y < 160;
            const PicturePlace& place = onStrip ? layout.strip() : layout.picture();
            const double windowX = place.x + (x + 0.5) / 480 * place.width;
            const double windowY =
                place.y + (onStrip ? (y + 0.5) / 160 : (y - 160 + 0.5) / 640) * place.height;
            const DisplayPoint point = layout.at(windowX, windowY);
            EXPECT_EQ(x, point.x);
            EXPECT_EQ(y, point.y);
        }
    });
}

TEST(WindowLayout, aFingerThatLeavesItsPartGoesOnAsIfThatPartDid) {
    const WindowLayout layout(960, 640);  // each pixel of the display is one of the window's
    const DisplayPoint left = layout.at(470.5, 320.5, WindowPart::kPicture);
    EXPECT_EQ(WindowPart::kPicture, left.part);
    EXPECT_EQ(-10, left.x);
    EXPECT_EQ(480, left.y);
    const DisplayPoint down = layout.at(100.5, 420.5, WindowPart::kStrip);
    EXPECT_EQ(100, down.x);
    EXPECT_EQ(180, down.y);
    EXPECT_EQ(WindowPart::kNone, layout.at(100.5, 20.5, WindowPart::kNone).part);
}

TEST(WindowLayout, aWindowWithoutPixelsIsHarmless) {
    const WindowLayout layout(0, 0);
    EXPECT_EQ(0, layout.picture().width);
    EXPECT_EQ(WindowPart::kNone, layout.at(0, 0).part);
}
