// SPDX-License-Identifier: MIT
// The window's strip: which keys it takes, which messages it shows, and what they offer.
#include "QuietDoors.h"
#include "ScreenNames.h"
#include "SdlStrip.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <vector>

using Kind = StripWish::Kind;

namespace {

/// A program that rests in the choice of the effect, or on another screen.
class PlayDoors : public QuietDoors {
public:
    PlayDoors() { screen = "Play"; }

    int32_t currentEffect() override { return 3; }

    bool canSave() override { return true; }

    bool saveSound() override { return true; }

    bool canUseSound() override { return true; }

    bool useSound(const int16_t*, int32_t) override { return true; }

    bool showEffect(int32_t) override { return true; }
};

class SdlStripTest : public ::testing::Test {
protected:
    SdlStripTest() { host.mapShipped(); }

    void start() {
        strip.strip().setDoors(&doors);
        strip.look();
    }

    std::string line() {
        const std::vector<std::string> lines = strip.strip().model().lines();
        return lines.empty() ? "" : lines[0];
    }

    TestHost host;
    PlayDoors doors;
    HostFolders folders;
    SdlStrip strip{folders, [this] { return host.nowMs; }};
};

}  // namespace

TEST_F(SdlStripTest, beforeTheProgramNoKeyIsTaken) {
    EXPECT_FALSE(strip.key(StripKey::kHelp));
    strip.strip().setDoors(&doors);
    EXPECT_TRUE(strip.key(StripKey::kHelp));
}

TEST_F(SdlStripTest, aMessageCanBeClosedOnce) {
    start();
    EXPECT_FALSE(strip.strip().canClose());
    EXPECT_FALSE(strip.key(StripKey::kClose));
    strip.tell(HostMessage{"takeIsBack", {}});
    EXPECT_TRUE(strip.strip().canClose());
    EXPECT_TRUE(strip.key(StripKey::kClose));
    EXPECT_FALSE(strip.strip().canClose());
}

TEST_F(SdlStripTest, messagesOfFilesOfferToShowThem) {
    setenv("HOME", "/home/me", 1);
    start();
    strip.tell(HostMessage{"exported", {"/home/me/Music/a.mp3"}});
    EXPECT_EQ("Exported: ~/Music/a.mp3", strip.strip().model().lines()[0]);
    EXPECT_EQ(Kind::kShowFile, strip.strip().model().action().wish.kind);
    EXPECT_EQ("/home/me/Music/a.mp3", strip.strip().model().action().wish.path);
}

TEST_F(SdlStripTest, aRecordingThatAFileReplacedIsOffered) {
    start();
    strip.tell(HostMessage{"takeReplaced", {"a.wav"}});
    EXPECT_EQ(Kind::kBringBack, strip.strip().model().action().wish.kind);
    EXPECT_EQ("Bring back", strip.strip().model().action().name);
}

TEST_F(SdlStripTest, messagesOfMicrophonesOfferAnotherOne) {
    for (const HostMessage& message :
         {HostMessage{"noMicrophone", {"why"}}, HostMessage{"microphoneUnusable", {"A", "why"}},
          HostMessage{"microphoneAway", {"A"}}}) {
        SdlStrip fresh{folders, [this] { return host.nowMs; }};
        fresh.strip().setDoors(&doors);
        fresh.look();
        fresh.tell(message);
        EXPECT_EQ(Kind::kMicrophones, fresh.strip().model().action().wish.kind) << message.row;
        EXPECT_EQ("Choose", fresh.strip().model().action().name);
    }
    start();
    strip.tell(HostMessage{"takeIsBack", {}});
    EXPECT_EQ(Kind::kNone, strip.strip().model().action().wish.kind);
}

TEST_F(SdlStripTest, whatTheMicrophoneSaysAtTheStartOfARecordingIsSeen) {
    strip.strip().setDoors(&doors);
    doors.screen = "Record";
    strip.look();
    // The device is opened before the strip is looked at on the new screen.
    strip.tell(HostMessage{"noMicrophone", {"why"}});
    doors.screen = "Recording";
    strip.look();
    ASSERT_FALSE(strip.strip().model().lines().empty());
    EXPECT_EQ(0U, line().find("No sound"));
    EXPECT_EQ(Kind::kNone, strip.strip().model().action().wish.kind);
    doors.screen = "Play";
    strip.look();
    EXPECT_EQ(Kind::kMicrophones, strip.strip().model().action().wish.kind);
}

TEST_F(SdlStripTest, whatIsToldBeforeTheLanguageIsKnownWaitsForIt) {
    strip.tell(HostMessage{"soundsNotKept", {"/tank"}});
    strip.tell(HostMessage{"settingsUnreadable", {}});
    EXPECT_EQ("", line());
    doors.screen = ScreenNames::kFirstLanguage;
    start();
    EXPECT_EQ("", line()) << "the user may want another one";
    doors.screen = "Splash";
    doors.language = "de";
    strip.look();
    EXPECT_EQ(0U, line().find("Sounds können nicht ")) << line();
    host.nowMs += 60000;
    strip.look();
    EXPECT_EQ(0U, line().find("Die Einstellungen ")) << line();
}

TEST_F(SdlStripTest, onceTheLanguageIsKnownNothingWaits) {
    doors.screen = ScreenNames::kFirstLanguage;
    doors.language = "es";
    start();
    strip.tell(HostMessage{"nothingToSave", {}});
    EXPECT_EQ(0U, line().find("Todavía no hay nada")) << line();
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

TEST_F(SdlStripTest, aFileManagerThatFailsIsTold) {
    TestFolders testFolders;
    testFolders.write("bin/xdg-open", "#!/bin/sh\nexit 3\n");
    ASSERT_EQ(0, ::chmod(testFolders.path("bin/xdg-open").c_str(), 0755));
    const std::string path = std::getenv("PATH");
    ASSERT_EQ(0, setenv("PATH", (testFolders.path("bin") + ":" + path).c_str(), 1));
    strip.strip().setDoors(&doors);
    strip.look();
    StripWish wish = StripWish::of(Kind::kShowFile);
    wish.path = testFolders.path("Music/a.wav");
    strip.strip().wishes().fulfil(wish, 0);
    while (strip.strip().model().lines().empty()) {
        strip.deliver();
    }
    setenv("PATH", path.c_str(), 1);
    std::string line;
    for (const std::string& row : strip.strip().model().lines()) {
        line += row;
    }
    EXPECT_NE(std::string::npos, line.find("Music")) << line;
}
