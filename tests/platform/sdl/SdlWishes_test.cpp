// SPDX-License-Identifier: MIT
// The list of microphones is shown, filled and used.
#include "SdlDoors.h"
#include "SdlStrip.h"
#include "SdlWishes.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Kind = StripWish::Kind;

namespace {

class SdlWishesTest : public testing::Test {
protected:
    SdlWishesTest() {
        host.mapShipped();
        list.ask = [this] { asked++; };
        list.chosen = [this] { return chosen; };
        list.use = [this](const std::string& name) { used.push_back(name); };
        list.isFixed = [this] { return fixed; };
    }

    void wish(const StripWish& wish) { strip.strip().wishes().fulfil(wish, host.nowMs); }

    /// The names in the list; the one in use has a star.
    std::vector<std::string> listed() {
        std::vector<std::string> all;
        for (const StripButton& button : strip.strip().model().buttons()) {
            if (button.wish.kind == Kind::kUseMicrophone) {
                all.push_back(button.name + (button.isLit ? "*" : ""));
            }
        }
        return all;
    }

    TestHost host;
    TestFolders testFolders;
    HostFolders folders;
    std::vector<std::string> names{"Built-in", "Headset"};
    std::string chosen;
    int32_t asked = 0;
    std::vector<std::string> used;
    std::vector<std::string> told;
    bool fixed = false;
    SdlWishes::Microphones list;
    TakeKeeper takes{testFolders.path("state"), [](const HostMessage&, const std::string&) {}};
    SdlStrip strip{folders, [this] { return host.nowMs; }};
    SdlDoors doors{folders, takes,
                   [this](const HostMessage& message) { told.push_back(message.text("en")); },
                   [](int32_t) { return ""; }, [] {}};
};

}  // namespace

TEST_F(SdlWishesTest, theListShowsWhatTheServerNamesAndWhatIsUsed) {
    SdlWishes wishes(strip, doors, list);
    wish(StripWish::of(Kind::kMicrophones));
    wishes.show(names);
    EXPECT_EQ((std::vector<std::string>{"Default microphone*", "Built-in", "Headset"}), listed());
    chosen = "Headset";
    wishes.show(names);
    EXPECT_EQ((std::vector<std::string>{"Default microphone", "Built-in", "Headset*"}), listed());
}

TEST_F(SdlWishesTest, theChosenOneIsListedWhileItIsNotConnected) {
    SdlWishes wishes(strip, doors, list);
    chosen = "Ear";
    wish(StripWish::of(Kind::kMicrophones));
    EXPECT_EQ(std::vector<std::string>{"Default microphone"}, listed());  // not known yet
    wishes.show(names);
    EXPECT_EQ((std::vector<std::string>{"Default microphone", "Built-in", "Headset",
                                        "Not connected: Ear*"}),
              listed());
    for (const StripButton& button : strip.strip().model().buttons()) {
        EXPECT_TRUE(button.isEnabled || button.wish.kind != Kind::kUseMicrophone ||
                    button.name == "Not connected: Ear")
            << button.name;
    }
    wish(StripWish::of(Kind::kUseMicrophone, 2));
    EXPECT_TRUE(used.empty());
    wishes.show({"Ear"});
    EXPECT_EQ((std::vector<std::string>{"Default microphone", "Ear*"}), listed());
}

TEST_F(SdlWishesTest, theListOpensAtOnceAndIsFilledWhenTheServerHasToldItsNames) {
    SdlWishes wishes(strip, doors, list);
    wish(StripWish::of(Kind::kMicrophones));
    EXPECT_EQ(1, asked);
    EXPECT_EQ(StripModel::Sheet::kMicrophones, strip.strip().model().sheet());
    EXPECT_EQ(std::vector<std::string>{"Default microphone*"}, listed());
    wishes.show(names);
    EXPECT_EQ(3U, listed().size());
    wish(StripWish::of(Kind::kMicrophones));  // those of the last time
    EXPECT_EQ(2, asked);
    EXPECT_EQ(3U, listed().size());
    strip.strip().model().key(StripKey::kClose);
    wishes.show({});  // it comes too late
    EXPECT_EQ(StripModel::Sheet::kNone, strip.strip().model().sheet());
}

TEST_F(SdlWishesTest, theChoiceIsUsedAsItWasListed) {
    SdlWishes wishes(strip, doors, list);
    wishes.show(names);
    wish(StripWish::of(Kind::kUseMicrophone, 1));
    wish(StripWish::of(Kind::kUseMicrophone, StripWish::kSystemsChoice));
    wish(StripWish::of(Kind::kUseMicrophone, 2));  // there is none
    EXPECT_EQ((std::vector<std::string>{"Headset", ""}), used);
}

TEST_F(SdlWishesTest, whereNoneCanBeChosenNoListOpens) {
    fixed = true;
    SdlWishes wishes(strip, doors, list);
    wish(StripWish::of(Kind::kMicrophones));
    EXPECT_EQ(StripModel::Sheet::kNone, strip.strip().model().sheet());
}

TEST_F(SdlWishesTest, theLastTakeIsForgotten) {
    SdlWishes wishes(strip, doors, list);
    takes.recorded(std::vector<int16_t>(100, 7));
    wish(StripWish::of(Kind::kForget));
    EXPECT_FALSE(takes.isThere());
    EXPECT_EQ(std::vector<std::string>{"The last recording is forgotten."}, told);
}
