// The window's size on SDL's stand-in for a screen, which has less room than the phone's display is
// high.
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
    ASSERT_EQ("", window.open(""));
    EXPECT_EQ(room.h - kTitleBarPx, window.heightUnits());
    EXPECT_EQ((room.h - kTitleBarPx) * 3 / 5, window.widthUnits());
}

TEST_F(SdlWindowTest, theSizeOfAnEarlierRunIsCutToTheScreen) {
    folders.write("window", "300 9000\n");
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path("")));
    EXPECT_EQ(300, window.widthUnits());
    EXPECT_EQ(room.h, window.heightUnits());
}

TEST_F(SdlWindowTest, aWindowIsNeverTooSmallToBeSeen) {
    folders.write("window", "1 1\n");
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path("")));
    EXPECT_EQ(120, window.widthUnits());
    EXPECT_EQ(200, window.heightUnits());
}

TEST_F(SdlWindowTest, aSizeThatTheUserDidNotChangeIsNotWritten) {
    SdlWindow window;
    ASSERT_EQ("", window.open(folders.path("")));
    window.rememberSize();
    EXPECT_FALSE(folders.has("window"));
}
