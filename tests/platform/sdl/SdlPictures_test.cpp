// SPDX-License-Identifier: MIT
// Pictures are looked at and drawn at the right times, without a window.
#include "DueTime.h"
#include "QuietDoors.h"
#include "SdlPictures.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr int64_t kUsPerMs = 1000;

/// A frame on which nothing has changed.
class StillFrame : public HostFrame {
public:
    void composeRows(uint16_t*, int32_t, const Rows&) override {}

    Rows takeChanges() override { return {}; }
};

class SdlPicturesTest : public testing::Test {
protected:
    SdlPicturesTest() { host.mapShipped(); }

    TestHost host;
    TestFolders testFolders;
    HostFolders folders;
    int64_t clockUs = 0;
    StillFrame frame;
    TakeKeeper takes{testFolders.path("state"), [](const HostMessage&, const std::string&) {}};
    SdlWindow window;
    SdlStrip strip{folders, [this] { return clockUs / kUsPerMs; }};
    Speech speech;
    SdlPictures pictures{window, strip, speech, takes, [this] { return clockUs; }};
};

}  // namespace

TEST_F(SdlPicturesTest, whatIsDueBeforeTheNextRefreshWaitsForIt) {
    strip.strip().model().tell("Hello", {}, "", 0);
    const int64_t endMs = strip.strip().dueMs();
    EXPECT_EQ(StripMessages::kShownMs, endMs);
    clockUs = (endMs - 1) * kUsPerMs;
    pictures.show(&frame);
    pictures.presentIfDue(nullptr);  // nothing was new: looks again after a refresh
    clockUs = endMs * kUsPerMs;
    // Something is due, but must not be shown before the next refresh: with an earlier time the
    // loop would spin.
    EXPECT_LT(endMs, pictures.dueMs());
    clockUs = pictures.dueMs() * kUsPerMs;
    pictures.presentIfDue(nullptr);
    EXPECT_TRUE(strip.strip().model().lines().empty());
    EXPECT_EQ(DueTime::kNever, pictures.dueMs());
}

TEST_F(SdlPicturesTest, aTakeThatWasForgottenIsNotOfferedUntilTheNextFrame) {
    QuietDoors doors;
    doors.screen = "Play";
    strip.strip().setDoors(&doors);
    strip.strip().model().setOffersMore(true);
    takes.recorded(std::vector<int16_t>(16, 1));
    pictures.show(&frame);
    pictures.presentIfDue(nullptr);
    const auto offers = [this] {
        strip.strip().model().showHelp({"Keys"});
        const std::vector<StripButton> all = strip.strip().model().buttons();
        return std::any_of(all.begin(), all.end(), [](const StripButton& button) {
            return button.wish.kind == StripWish::Kind::kForget && button.isEnabled;
        });
    };
    EXPECT_TRUE(offers());
    EXPECT_EQ("", takes.forget());
    clockUs = pictures.dueMs() * kUsPerMs;
    pictures.presentIfDue(nullptr);  // no frame of the program, but a new sheet
    EXPECT_FALSE(offers());
    strip.strip().setDoors(nullptr);
}

TEST_F(SdlPicturesTest, withoutAFrameNothingIsDue) {
    strip.strip().model().tell("Hello", {}, "", 0);
    EXPECT_EQ(DueTime::kNever, pictures.dueMs());
    pictures.show(&frame);
    EXPECT_NE(DueTime::kNever, pictures.dueMs());
    pictures.show(nullptr);
    EXPECT_EQ(DueTime::kNever, pictures.dueMs());
}
