// SPDX-License-Identifier: MIT
// The splash screen shows its pictures, prepares the sound folder, and ends by time or by a key.
#include "AppImage.h"
#include "FileInputStream.h"
#include "FileOps.h"
#include "G.h"
#include "MIDlet.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspBase.h"
#include "ScreensTest.h"
#include "State.h"

namespace {

constexpr const char* kNotSupported = "This device is not supported.\nThe application will end.";

class SplashTest : public ScreensTest {
protected:
    static Pixels shipped(const char* path) {
        std::unique_ptr<InputStream> stream(MIDlet::getResourceAsStream(path));
        const std::unique_ptr<AppImage> image(Orm::loadImage(stream.get()));
        stream->close();
        return {image->pixels.get(), image->pixels + image->w * image->h};
    }

    std::string enterWith(int64_t phone, int64_t card) {
        host.phoneBytes = phone;
        host.cardBytes = card;
        enter(G::stateSplash);
        return fatalBody();
    }
};

}  // namespace

TEST_F(SplashTest, showsItsTwoPicturesOneAboveTheOther) {
    enter(G::stateSplash);
    EXPECT_EQ(shipped("/Res/splash_top.png"), picture(0, 0, 240, 248));
    EXPECT_EQ(shipped("/Res/splash_eu.png"), picture(0, 248, 240, 72));
}

TEST_F(SplashTest, namesAndMakesTheSoundFolder) {
    enter(G::stateSplash);
    EXPECT_EQ("/Home/Murmelo/", G::getMrmFolderUri()->ToUtf8());
    EXPECT_TRUE(FileOps::exists("/Home/Murmelo/"));
    EXPECT_EQ("MrmLastRec.wav", G::uriPartWavRecorded->ToUtf8());
    EXPECT_EQ("MrmLastProc.wav", G::uriPartWavProcessed->ToUtf8());
}

TEST_F(SplashTest, goesOnAfterThreeSeconds) {
    enter(G::stateSplash);
    EXPECT_EQ(Names{"Update@3000"}, pending());
    pass(2999);
    EXPECT_EQ("Splash", screen());
    pass(1);
    EXPECT_EQ("Options", screen());
}

TEST_F(SplashTest, theMiddleKeyGoesOnAtOnce) {
    enter(G::stateSplash);
    key(OrmCanvas::kKeyMiddle);
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(pending().empty());
}

TEST_F(SplashTest, otherKeysAndTouchesDoNot) {
    enter(G::stateSplash);
    for (int32_t code = -1; code >= -8; code--) {
        if (code != OrmCanvas::kKeyMiddle) {
            key(code);
        }
    }
    touch(kMiddle);
    deliver(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_MSK);
    EXPECT_EQ("Splash", screen());
}

TEST_F(SplashTest, removesWhatAnEarlierRunLeftBehind) {
    putTake({1, 2, 3});
    folders.write(kResult, "old");
    folders.write("home/Murmelo/rec_00000.wav", "kept");
    enter(G::stateSplash);
    EXPECT_FALSE(hasTake());
    EXPECT_FALSE(hasResult());
    EXPECT_TRUE(folders.has("home/Murmelo/rec_00000.wav"));
}

TEST_F(SplashTest, unknownStorageIsNotSupported) {
    EXPECT_EQ(kNotSupported, enterWith(-1, -1));
}

TEST_F(SplashTest, exactly1024BytesAreTooLittle) {
    EXPECT_EQ(kStorageLow, enterWith(1024, 1024));
}

TEST_F(SplashTest, oneMediumWith1025BytesIsEnough) {
    EXPECT_EQ("none", enterWith(1025, 1024));
    EXPECT_EQ("none", enterWith(1024, 1025));
    EXPECT_EQ("none", enterWith(1025, -1));
    EXPECT_EQ("none", enterWith(-1, 1025));
    EXPECT_EQ("Splash", screen());
}

TEST_F(SplashTest, oneKnownMediumThatIsFullIsTooLittle) {
    EXPECT_EQ(kStorageLow, enterWith(0, -1));
}

TEST_F(SplashTest, aFullCardBesideAnUnknownPhoneIsTooLittle) {
    EXPECT_EQ(kStorageLow, enterWith(-1, 1024));
}

TEST_F(SplashTest, muchStorageIsNotTakenForNone) {
    EXPECT_EQ("none", enterWith(int64_t{1} << 32, -1));
}

TEST_F(SplashTest, withoutStorageNothingIsMadeOrDeleted) {
    putTake({1, 2, 3});
    enterWith(100, 100);
    EXPECT_TRUE(hasTake());
    EXPECT_EQ(nullptr, G::getMrmFolderUri());
    EXPECT_TRUE(pending().empty());
    Murmelo::deleteTempFiles();
    G::deleteRecordedAndProcessed();
    EXPECT_TRUE(hasTake());
}

TEST_F(SplashTest, aFolderThatCannotBeMadeIsNotSupported) {
    host.failNth("Directory.Create", 1);
    enter(G::stateSplash);
    EXPECT_EQ(kNotSupported, fatalBody());
    EXPECT_TRUE(pending().empty());
}

TEST_F(SplashTest, aFileInThePlaceOfTheFolderIsNotSupported) {
    folders.write("home/Murmelo", "a file");
    enter(G::stateSplash);
    EXPECT_EQ(kNotSupported, fatalBody());
    EXPECT_EQ("a file", folders.read("home/Murmelo"));
}

TEST_F(SplashTest, whileTheProgramIsPausedNothingHappensYet) {
    const Pixels before = picture();
    Orm::setPaused(true);
    State::setState(G::stateSplash, true, true);
    EXPECT_EQ(before, picture());
    EXPECT_EQ(nullptr, G::getMrmFolderUri());
    deliver(Orm::EV_T_UPDATE);
    deliver(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_MSK);
    EXPECT_EQ("Splash", screen());
    host.nowMs += 5000;
    Orm::setPaused(false);
    EXPECT_EQ(shipped("/Res/splash_top.png"), picture(0, 0, 240, 248));
    EXPECT_EQ(Names{"Update@3000"}, pending());
    pass(3000);
    EXPECT_EQ("Options", screen());
}

TEST_F(SplashTest, aPauseWhileItStandsOnlyStretchesTheThreeSeconds) {
    enter(G::stateSplash);
    pass(1000);
    Orm::setPaused(true);
    pass(60000);
    EXPECT_EQ("Splash", screen());
    Orm::setPaused(false);
    EXPECT_EQ(Names{"Update@2000"}, pending());
}

TEST_F(SplashTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::stateSplash->getSubscriptions());
}
