#include "Languages.h"
#include "SdlStrip.h"
#include "TestHost.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <string>
#include <vector>

using Kind = StripWish::Kind;

namespace {

/// A program that rests in the choice of the effect.
class PlayDoors : public HostDoors {
public:
    std::string screenName() override { return "Play"; }

    int32_t currentEffect() override { return 3; }

    bool navigate(HostKey) override { return false; }

    bool stopRecording() override { return false; }

    bool canSave() override { return true; }

    bool saveSound() override { return true; }

    bool canUseSound() override { return true; }

    bool useSound(const int16_t*, int32_t) override { return true; }

    bool showEffect(int32_t) override { return true; }

    int32_t savedCount() override { return 0; }

    std::string savedName() override { return ""; }

    std::vector<uint8_t> canvasPng() override { return {}; }

    ScreenTexts texts() override {
        ScreenTexts texts;
        texts.language = Languages::kAll[0].code;
        texts.screen = screenName();
        return texts;
    }
};

class SdlStripTest : public ::testing::Test {
protected:
    SdlStripTest() {
        host.mapShipped();
        for (const Kind kind :
             {Kind::kSave, Kind::kOpen, Kind::kMicrophones, Kind::kHelp, Kind::kEffect}) {
            strip.strip().wishes().on(kind,
                                      [this](const StripWish& wish) { wishes.push_back(wish); });
        }
    }

    bool press(int32_t symbol, int32_t modifiers = 0, uint8_t repeat = 0) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = symbol;
        event.key.keysym.mod = static_cast<uint16_t>(modifiers);
        event.key.repeat = repeat;
        return strip.handle(event);
    }

    TestHost host;
    PlayDoors doors;
    HostFolders folders;
    SdlStrip strip{folders, [this] { return host.nowMs; }};
    std::vector<StripWish> wishes;
};

}  // namespace

TEST_F(SdlStripTest, beforeTheProgramNoKeyIsTaken) {
    EXPECT_FALSE(press(SDLK_s));
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SdlStripTest, plainKeysAreWishes) {
    strip.strip().setDoors(&doors);
    EXPECT_TRUE(press(SDLK_s));
    EXPECT_TRUE(press(SDLK_o));
    EXPECT_TRUE(press(SDLK_m));
    EXPECT_TRUE(press(SDLK_QUESTION));
    EXPECT_TRUE(press(SDLK_SLASH, KMOD_LSHIFT));
    EXPECT_TRUE(press(SDLK_1));
    EXPECT_TRUE(press(SDLK_8));
    ASSERT_EQ(7U, wishes.size());
    const Kind kinds[] = {Kind::kSave, Kind::kOpen,   Kind::kMicrophones, Kind::kHelp,
                          Kind::kHelp, Kind::kEffect, Kind::kEffect};
    for (size_t i = 0; i < wishes.size(); i++) {
        EXPECT_EQ(kinds[i], wishes[i].kind) << i;
    }
    EXPECT_EQ(0, wishes[5].index);
    EXPECT_EQ(7, wishes[6].index);
}

TEST_F(SdlStripTest, keysWithControlAndRepeatedKeysAreForOthers) {
    strip.strip().setDoors(&doors);
    for (const int32_t modifier : {KMOD_LCTRL, KMOD_RALT, KMOD_LGUI}) {
        EXPECT_FALSE(press(SDLK_s, modifier));
    }
    EXPECT_FALSE(press(SDLK_s, 0, 1));
    EXPECT_FALSE(press(SDLK_9));
    EXPECT_FALSE(press(SDLK_SLASH));
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SdlStripTest, escapeIsTheProgramsUnlessAMessageStands) {
    strip.strip().setDoors(&doors);
    EXPECT_FALSE(press(SDLK_ESCAPE));
    strip.tell("Hello");
    EXPECT_TRUE(press(SDLK_ESCAPE));
    EXPECT_FALSE(press(SDLK_ESCAPE));
}

TEST_F(SdlStripTest, sentencesStandInTheLine) {
    strip.tell("the picture cannot be written");
    EXPECT_EQ("the picture cannot be written", strip.strip().model().lines()[0]);
}

TEST_F(SdlStripTest, aPictureIsToldWithAWayToIt) {
    setenv("HOME", "/home/me", 1);
    strip.tellPicture("/home/me/Music/a.png");
    EXPECT_EQ("Picture: ~/Music/a.png", strip.strip().model().lines()[0]);
    EXPECT_EQ(Kind::kShowFile, strip.strip().model().action().wish.kind);
    EXPECT_EQ("/home/me/Music/a.png", strip.strip().model().action().wish.path);
}

TEST_F(SdlStripTest, onlyWhatLiesBelowTheHomeIsShortened) {
    setenv("HOME", "/home/me", 1);
    strip.tellPicture("/home/meb/a.png");
    EXPECT_EQ("Picture: /home/meb/a.png", strip.strip().model().lines()[0]);
}
