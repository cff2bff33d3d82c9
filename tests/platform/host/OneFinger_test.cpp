// SPDX-License-Identifier: MIT
// Several pointers become one finger, and the second tap of a double tap is dropped.
#include "OneFinger.h"
#include "QuietListener.h"

#include <gtest/gtest.h>

namespace {

using Notes = std::vector<std::string>;
using Pointer = OneFinger::Pointer;

constexpr int32_t kOnBar = HostFrame::kSoftKeysTopPx;

class Phone : public QuietListener {
public:
    void onTouch(Touch touch, int32_t x, int32_t y) override {
        const char* const kinds[] = {"press", "move", "release"};
        notes.push_back(std::string(kinds[static_cast<size_t>(touch)]) + " " + std::to_string(x) +
                        " " + std::to_string(y));
    }

    Notes notes;
};

class OneFingerTest : public testing::Test {
protected:
    bool tap(int32_t y, uint32_t timeMs) {
        const bool taken = finger.tapped(Pointer::kFinger, 1, 10, y, timeMs, phone);
        finger.released(Pointer::kFinger, 1, 10, y, phone);
        return taken;
    }

    Phone phone;
    OneFinger finger;
};

}  // namespace

TEST_F(OneFingerTest, aSecondPointerIsNotThereUntilTheFirstLetsGo) {
    EXPECT_TRUE(finger.pressed(Pointer::kFinger, 1, 10, 20, phone));
    EXPECT_FALSE(finger.pressed(Pointer::kFinger, 2, 30, 40, phone));
    EXPECT_FALSE(finger.pressed(Pointer::kMouse, 1, 30, 40, phone));
    EXPECT_FALSE(finger.moved(Pointer::kFinger, 2, 31, 41, phone));
    EXPECT_FALSE(finger.released(Pointer::kMouse, 1, 31, 41, phone));
    EXPECT_TRUE(finger.released(Pointer::kFinger, 1, 11, 21, phone));
    EXPECT_TRUE(finger.pressed(Pointer::kMouse, 1, 30, 40, phone));
    EXPECT_EQ((Notes{"press 10 20", "release 11 21", "press 30 40"}), phone.notes);
}

TEST_F(OneFingerTest, aPointerBeyondTheDisplayPressesNothingAndLetsGoAtItsEdge) {
    for (const auto& [x, y] : {std::pair{-1, 0}, {480, 0}, {0, -1}, {0, 800}}) {
        EXPECT_FALSE(finger.pressed(Pointer::kMouse, 1, x, y, phone)) << x << ", " << y;
    }
    finger.pressed(Pointer::kMouse, 1, 479, 799, phone);
    finger.moved(Pointer::kMouse, 1, 600, -50, phone);
    finger.released(Pointer::kMouse, 1, -7, 900, phone);
    EXPECT_EQ((Notes{"press 479 799", "move 479 0", "release 0 799"}), phone.notes);
}

TEST_F(OneFingerTest, aPointerThatIsTakenAwayLetsGoWhereNoKeyIs) {
    finger.pressed(Pointer::kFinger, 1, 400, 780, phone);
    EXPECT_FALSE(finger.cancelled(Pointer::kFinger, 2, phone)) << "another one";
    EXPECT_TRUE(finger.cancelled(Pointer::kFinger, 1, phone));
    EXPECT_FALSE(finger.released(Pointer::kFinger, 1, 400, 780, phone)) << "it has let go";
    EXPECT_EQ((Notes{"press 400 780", "release 0 0"}), phone.notes);
    static_assert(HostFrame::kCanvasTopPx > 0, "above the canvas");
}

TEST_F(OneFingerTest, theSecondTapOfADoubleTapOnTheSoftKeysIsDropped) {
    EXPECT_TRUE(tap(kOnBar, 1000));
    EXPECT_FALSE(tap(kOnBar, 1499));
    EXPECT_TRUE(tap(kOnBar, 1500));
}

TEST_F(OneFingerTest, aTapBetweenTwoOnTheSoftKeysMakesThemTwo) {
    EXPECT_TRUE(tap(kOnBar, 1000));
    EXPECT_TRUE(tap(kOnBar - 1, 1100));
    EXPECT_TRUE(tap(kOnBar, 1200));
}

TEST_F(OneFingerTest, aDoubleTapIsFoundWhereTheClockWraps) {
    EXPECT_TRUE(tap(kOnBar, 0xFFFFFFF0U));
    EXPECT_FALSE(tap(kOnBar, 100));
    EXPECT_TRUE(tap(kOnBar, 500));
}
