// SPDX-License-Identifier: MIT
// The window's size with SDL's driver without a screen, whose room is less high than the phone's
// display.
#include "SdlWindow.h"
#include "TestFolders.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <cstdlib>

namespace {

constexpr int32_t kTitleBarPx = 40;

class SdlWindowTest : public testing::Test {
protected:
    void SetUp() override {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        ASSERT_EQ(0, SDL_InitSubSystem(SDL_INIT_VIDEO));
        ASSERT_EQ(0, SDL_GetDisplayUsableBounds(0, &room));
        ASSERT_GT(800, room.h);
    }

    void TearDown() override { SDL_QuitSubSystem(SDL_INIT_VIDEO); }

    TestFolders folders;
    SDL_Rect room = {};
};

}  // namespace

TEST_F(SdlWindowTest, aLowScreenLeavesRoomForATitleBarAndKeepsTheProportions) {
    SdlWindow window;
    ASSERT_EQ("", window.open("", false));
    EXPECT_EQ(room.h - kTitleBarPx, window.heightUnits());
    EXPECT_EQ((room.h - kTitleBarPx) * 3 / 5, window.widthUnits());
}

TEST_F(SdlWindowTest, theSizeOfAnEarlierRunIsCutToTheScreen) {
    folders.write("window", "300 9000\n");
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path(""), false));
    EXPECT_EQ(300, window.widthUnits());
    EXPECT_EQ(room.h, window.heightUnits());
}

TEST_F(SdlWindowTest, aWindowIsNeverTooSmallToBeSeen) {
    folders.write("window", "1 1\n");
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path(""), false));
    EXPECT_EQ(120, window.widthUnits());
    EXPECT_EQ(200, window.heightUnits());
}

TEST_F(SdlWindowTest, aSizeThatTheUserDidNotChangeIsNotWritten) {
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path(""), false));
    window.rememberSize();
    EXPECT_FALSE(folders.has("window"));
}

TEST_F(SdlWindowTest, theDesktopsScaleIsUsedUpToTheScreensRoom) {
    setenv("GDK_SCALE", "2", 1);
    SdlWindow window;
    ASSERT_EQ("", window.open("", false));
    unsetenv("GDK_SCALE");
    EXPECT_EQ(room.h - kTitleBarPx, window.heightUnits());
}

TEST_F(SdlWindowTest, stepsChangeTheSizeAndOneGoesBackToTheUsual) {
    SdlWindow window;
    ASSERT_EQ("", window.open("", false));
    const int32_t usual = window.heightUnits();
    window.changeSize(SdlWindow::Change::kSmaller);
    EXPECT_EQ(600, window.heightUnits());
    EXPECT_EQ(360, window.widthUnits());
    window.changeSize(SdlWindow::Change::kUsual);
    EXPECT_EQ(usual, window.heightUnits());
    window.changeSize(SdlWindow::Change::kLarger);
    EXPECT_EQ(usual, window.heightUnits());  // no room
}

TEST_F(SdlWindowTest, aWindowThatFillsTheScreenHasNoSteps) {
    SdlWindow window;
    ASSERT_EQ("", window.open("", true));
    const int32_t full = window.heightUnits();
    window.changeSize(SdlWindow::Change::kSmaller);
    EXPECT_EQ(full, window.heightUnits());
    window.toggleFullScreen();
    window.changeSize(SdlWindow::Change::kSmaller);
    EXPECT_GT(full, window.heightUnits());
}
