// SPDX-License-Identifier: MIT
// The window's first size and its steps fit the desktop's scale and the screen.
#include "WindowSizes.h"

#include <gtest/gtest.h>

using Size = WindowSizes::Size;

namespace {

constexpr Size kRoom = {1920, 1080};

testing::AssertionResult is(int32_t width, int32_t height, Size size) {
    return size.width == width && size.height == height
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << size.width << " x " << size.height;
}

}  // namespace

TEST(WindowSizes, theFirstThatTellsTheScaleDecides) {
    EXPECT_EQ(1, WindowSizes::desktopScale(true, "192", "2"));
    EXPECT_EQ(1.5, WindowSizes::desktopScale(false, "144", "2"));
    EXPECT_EQ(2, WindowSizes::desktopScale(false, "", "2"));
    EXPECT_EQ(0, WindowSizes::desktopScale(false, "", ""));
}

TEST(WindowSizes, aScaleThatIsNoneIsNotUsed) {
    EXPECT_EQ(3, WindowSizes::desktopScale(false, "much", "3"));
    EXPECT_EQ(3, WindowSizes::desktopScale(false, "-96", "3"));
    EXPECT_EQ(3, WindowSizes::desktopScale(false, "inf", "3"));
    EXPECT_EQ(0, WindowSizes::desktopScale(false, "", "2 or 3"));
    EXPECT_EQ(1, WindowSizes::desktopScale(false, "72", ""));  // never smaller than usual
    EXPECT_EQ(8, WindowSizes::desktopScale(false, "96000", ""));
}

TEST(WindowSizes, itBeginsAsThePhoneOrWithinTheRoom) {
    EXPECT_TRUE(is(480, 800, WindowSizes::usual(1, kRoom)));
    EXPECT_TRUE(is(720, 1200, WindowSizes::usual(1.5, {2560, 1440})));
    EXPECT_TRUE(is(624, 1040, WindowSizes::usual(2, kRoom)));
    EXPECT_TRUE(is(240, 400, WindowSizes::usual(1, {240, 2000})));
    EXPECT_TRUE(is(960, 1600, WindowSizes::usual(2, {})));
}

TEST(WindowSizes, aStepIsHalfAPixelOfTheProgram) {
    EXPECT_TRUE(is(600, 1000, WindowSizes::larger({480, 800}, kRoom)));
    EXPECT_TRUE(is(600, 1000, WindowSizes::larger({500, 900}, kRoom)));
    EXPECT_TRUE(is(360, 600, WindowSizes::smaller({480, 800})));
    EXPECT_TRUE(is(480, 800, WindowSizes::smaller({500, 900})));
    EXPECT_TRUE(is(720, 480, WindowSizes::smaller({960, 640})));
    EXPECT_TRUE(is(1200, 800, WindowSizes::larger({960, 640}, kRoom)));
}

TEST(WindowSizes, thereIsASmallestAndALargest) {
    EXPECT_TRUE(is(120, 200, WindowSizes::smaller({120, 200})));
    EXPECT_TRUE(is(600, 1000, WindowSizes::larger({600, 1000}, kRoom)));
}

TEST(WindowSizes, whereTheRoomIsNotKnownItGrowsAllTheSame) {
    EXPECT_TRUE(is(600, 1000, WindowSizes::larger({480, 800}, {})));
}

TEST(WindowSizes, upAndDownAgainIsTheSameSize) {
    for (int32_t steps = 1; steps <= 4; steps++) {
        const Size size{120 * steps, 200 * steps};
        EXPECT_TRUE(
            is(size.width, size.height, WindowSizes::smaller(WindowSizes::larger(size, kRoom))));
    }
}
