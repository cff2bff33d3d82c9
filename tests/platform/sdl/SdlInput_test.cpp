// SPDX-License-Identifier: MIT
// SDL's mouse and fingers become the phone's one finger.
#include "SdlInput.h"

#include <gtest/gtest.h>
#include <SDL.h>

namespace {

using Notes = std::vector<std::string>;

class Phone : public HostListener, public SdlPlaces {
public:
    void onTouch(Touch touch, int32_t x, int32_t y) override {
        const char* const kinds[] = {"press", "move", "release"};
        notes.push_back(std::string(kinds[static_cast<size_t>(touch)]) + " " + std::to_string(x) +
                        " " + std::to_string(y));
    }

    void onVolumeKey(bool) override {}

    void onForeground() override {}

    void onBackground() override {}

    void onScreenOff() override {}

    void onScreenOn() override {}

    void onTerminate() override {}

    /// A window of 500 x 1000 with the display at 10, 100.
    DisplayPoint fromShares(double xShare, double yShare, WindowPart part) const override {
        return fromMouse(static_cast<int32_t>(xShare * 500), static_cast<int32_t>(yShare * 1000),
                         part);
    }

    DisplayPoint fromMouse(int32_t mouseX, int32_t mouseY, WindowPart part) const override {
        askedFor.push_back(part);
        const int32_t y = mouseY - 100;
        return {y < 160 ? WindowPart::kStrip : WindowPart::kPicture, mouseX - 10, y};
    }

    mutable std::vector<WindowPart> askedFor;
    Notes notes;
};

class SdlInputTest : public testing::Test {
protected:
    bool mouse(
        uint32_t type, int32_t x, int32_t y, uint8_t button = SDL_BUTTON_LEFT, uint8_t clicks = 1) {
        SDL_Event event{};
        event.type = type;
        if (type == SDL_MOUSEMOTION) {
            event.motion.x = x;
            event.motion.y = y;
        } else {
            event.button.button = button;
            event.button.clicks = clicks;
            event.button.x = x;
            event.button.y = y;
        }
        return input.handle(event, phone);
    }

    void click(int32_t x, int32_t y, uint8_t clicks = 1) {
        mouse(SDL_MOUSEBUTTONDOWN, x, y, SDL_BUTTON_LEFT, clicks);
        mouse(SDL_MOUSEBUTTONUP, x, y, SDL_BUTTON_LEFT, clicks);
    }

    bool finger(uint32_t type, int64_t id, float xShare, float yShare) {
        SDL_Event event{};
        event.type = type;
        event.tfinger.fingerId = id;
        event.tfinger.x = xShare;
        event.tfinger.y = yShare;
        return input.handle(event, phone);
    }

    /// A finger set down and lifted at that time.
    void tap(uint32_t atMs, float xShare, float yShare) {
        for (const uint32_t type : {SDL_FINGERDOWN, SDL_FINGERUP}) {
            SDL_Event event{};
            event.type = type;
            event.tfinger.timestamp = atMs;
            event.tfinger.fingerId = 1;
            event.tfinger.x = xShare;
            event.tfinger.y = yShare;
            input.handle(event, phone);
        }
    }

    Phone phone;
    SdlInput input{phone};
};

}  // namespace

TEST_F(SdlInputTest, theMouseIsAFingerWhileItsButtonIsDown) {
    EXPECT_FALSE(mouse(SDL_MOUSEMOTION, 50, 150));
    EXPECT_TRUE(mouse(SDL_MOUSEBUTTONDOWN, 50, 150));
    EXPECT_TRUE(mouse(SDL_MOUSEMOTION, 60, 160));
    EXPECT_TRUE(mouse(SDL_MOUSEBUTTONUP, 70, 170));
    EXPECT_FALSE(mouse(SDL_MOUSEMOTION, 80, 180));
    EXPECT_EQ((Notes{"press 40 50", "move 50 60", "release 60 70"}), phone.notes);
}

TEST_F(SdlInputTest, otherButtonsAreNoFinger) {
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONDOWN, 50, 150, SDL_BUTTON_RIGHT));
    EXPECT_TRUE(mouse(SDL_MOUSEBUTTONDOWN, 50, 150));
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONUP, 50, 150, SDL_BUTTON_RIGHT));
    EXPECT_TRUE(mouse(SDL_MOUSEBUTTONUP, 50, 150));
}

TEST_F(SdlInputTest, aTouchInTheBandsIsNoTouch) {
    for (const auto& [x, y] : {std::pair{9, 500}, {490, 500}, {200, 99}, {200, 900}}) {
        EXPECT_FALSE(mouse(SDL_MOUSEBUTTONDOWN, x, y));
        EXPECT_FALSE(mouse(SDL_MOUSEMOTION, 200, 500));
        EXPECT_FALSE(mouse(SDL_MOUSEBUTTONUP, 200, 500));
    }
    EXPECT_TRUE(phone.notes.empty());
}

TEST_F(SdlInputTest, theDisplaysEdgesBelongToIt) {
    click(10, 100);
    click(489, 899);
    EXPECT_EQ((Notes{"press 0 0", "release 0 0", "press 479 799", "release 479 799"}), phone.notes);
}

TEST_F(SdlInputTest, aFingerThatLeavesTheDisplayGoesOnAtItsEdge) {
    mouse(SDL_MOUSEBUTTONDOWN, 100, 500);
    mouse(SDL_MOUSEMOTION, -50, 20);
    mouse(SDL_MOUSEBUTTONUP, 2000, 2000);
    EXPECT_EQ((Notes{"press 90 400", "move 0 0", "release 479 799"}), phone.notes);
}

TEST_F(SdlInputTest, aDragBelongsToThePartThatItBeganOn) {
    mouse(SDL_MOUSEBUTTONDOWN, 100, 500);
    mouse(SDL_MOUSEMOTION, 100, 150);
    mouse(SDL_MOUSEBUTTONUP, 100, 150);
    mouse(SDL_MOUSEBUTTONDOWN, 100, 150);
    mouse(SDL_MOUSEMOTION, 100, 500);
    finger(SDL_FINGERDOWN, 7, 0.5F, 0.5F);  // a second finger changes nothing
    mouse(SDL_MOUSEBUTTONUP, 100, 500);
    finger(SDL_FINGERDOWN, 7, 0.5F, 0.5F);
    finger(SDL_FINGERMOTION, 7, 0.5F, 0.15F);
    constexpr WindowPart kNone = WindowPart::kNone;
    constexpr WindowPart kStrip = WindowPart::kStrip;
    constexpr WindowPart kPicture = WindowPart::kPicture;
    EXPECT_EQ((std::vector<WindowPart>{kNone, kPicture, kPicture, kNone, kStrip, kNone, kStrip,
                                       kNone, kPicture}),
              phone.askedFor);
}

TEST_F(SdlInputTest, onlyTheFirstFingerCounts) {
    EXPECT_TRUE(finger(SDL_FINGERDOWN, 7, 0.5F, 0.5F));
    EXPECT_FALSE(finger(SDL_FINGERDOWN, 8, 0.2F, 0.2F));
    EXPECT_FALSE(finger(SDL_FINGERMOTION, 8, 0.3F, 0.3F));
    EXPECT_TRUE(finger(SDL_FINGERMOTION, 7, 0.6F, 0.5F));
    EXPECT_FALSE(finger(SDL_FINGERUP, 8, 0.3F, 0.3F));
    EXPECT_TRUE(finger(SDL_FINGERUP, 7, 0.6F, 0.5F));
    EXPECT_EQ((Notes{"press 240 400", "move 290 400", "release 290 400"}), phone.notes);
}

TEST_F(SdlInputTest, theSecondFingerIsNotTheFirstOnceThatIsGone) {
    finger(SDL_FINGERDOWN, 7, 0.5F, 0.5F);
    finger(SDL_FINGERDOWN, 8, 0.2F, 0.2F);
    finger(SDL_FINGERUP, 7, 0.5F, 0.5F);
    EXPECT_FALSE(finger(SDL_FINGERMOTION, 8, 0.3F, 0.3F));
    EXPECT_FALSE(finger(SDL_FINGERUP, 8, 0.3F, 0.3F));
    EXPECT_TRUE(finger(SDL_FINGERDOWN, 9, 0.3F, 0.3F));
}

TEST_F(SdlInputTest, aMouseBesideAFingerIsNotHeard) {
    finger(SDL_FINGERDOWN, 7, 0.5F, 0.5F);
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONDOWN, 50, 150));
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONUP, 50, 150));
    EXPECT_TRUE(finger(SDL_FINGERUP, 7, 0.5F, 0.5F));
}

TEST_F(SdlInputTest, theSecondHalfOfADoubleClickIsDroppedOnTheSoftKeys) {
    click(200, 836);  // the bar's first row
    click(200, 836, 2);
    EXPECT_EQ(2U, phone.notes.size());
    click(200, 836, 3);
    EXPECT_EQ(2U, phone.notes.size());  // nor does an impatient third one count
    click(200, 836, 1);
    EXPECT_EQ(4U, phone.notes.size());
}

TEST_F(SdlInputTest, theSecondTapOfADoubleTapIsDroppedOnTheSoftKeys) {
    tap(1000, 0.5F, 0.85F);
    tap(1300, 0.5F, 0.85F);
    EXPECT_EQ(2U, phone.notes.size());
    tap(1501, 0.5F, 0.85F);
    EXPECT_EQ(4U, phone.notes.size());
    tap(1600, 0.5F, 0.5F);  // elsewhere every tap counts
    tap(1700, 0.5F, 0.5F);
    EXPECT_EQ(8U, phone.notes.size());
}

TEST_F(SdlInputTest, aDoubleClickAboveTheSoftKeysIsTwoTouches) {
    click(200, 835);
    click(200, 835, 2);
    EXPECT_EQ(4U, phone.notes.size());
}
