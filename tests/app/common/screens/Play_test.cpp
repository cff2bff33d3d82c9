// SPDX-License-Identifier: MIT
// The choice of the effect: turning by keys, drags and arrows, and playing the result.
#include "AppImage.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "GameInterface.h"
#include "Header.h"
#include "Main.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaImage.h"
#include "ScreensTest.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"
#include "WavProc.h"

namespace {

constexpr int32_t kLeftCode = -3;
constexpr int32_t kRightCode = -4;

class PlayTest : public ScreensTest {
protected:
    PlayTest() {
        makeSoundFolder();
        putTake(TestSounds::noise(3200));
        enter(G::statePlay);
    }

    /// Touches the middle of an arrow.
    static void touchArrow(bool left) {
        const PaImage* arrow = left ? G::piArrowLeftWhite : G::piArrowRightWhite;
        const int32_t x = left ? 8 : 232 - arrow->getWidth() + 1;
        touch(x + arrow->getWidth() / 2, 2 + arrow->getHeight() / 2);
    }
};

}  // namespace

TEST_F(PlayTest, offersTheEffectWithArrowsNameAndThreeKeys) {
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    EXPECT_TRUE(Header::arrows);
    EXPECT_TRUE(Header::fxName);
    EXPECT_FALSE(Header::leftP);
    EXPECT_FALSE(Header::rightP);
    EXPECT_TRUE(pending().empty());
    const Pixels upper = picture(0, 0, 240, 288);
    Main::paintBgAndFx();
    Header::paint(false);
    EXPECT_EQ(picture(0, 0, 240, 288), upper);
}

TEST_F(PlayTest, theRightKeyTurnsToTheNextEffectAndWrapsAroundTheEnd) {
    for (int32_t i = 1; i <= 8; i++) {
        key(kRightCode);
        EXPECT_EQ(i % 8, G::getCurrFx());
    }
}

TEST_F(PlayTest, theLeftKeyTurnsToTheEffectBeforeAndWrapsAroundTheBeginning) {
    key(kLeftCode);
    EXPECT_EQ(7, G::getCurrFx());
    key(kLeftCode);
    EXPECT_EQ(6, G::getCurrFx());
}

TEST_F(PlayTest, keysStillWaitingAreForgottenAtATurn) {
    Orm::canvas->keyPressed(kRightCode);
    Orm::canvas->keyReleased(kRightCode);
    Orm::canvas->keyPressed(kRightCode);
    Orm::canvas->keyReleased(kRightCode);
    tick();
    EXPECT_EQ(1, G::getCurrFx());
}

TEST_F(PlayTest, aDragOf100PixelsTurnsOnceInTheDirectionOfTheArrowItPulls) {
    Orm::canvas->pointerPressed(50, 160);
    Orm::canvas->pointerDragged(150, 160);
    Orm::canvas->pointerReleased(150, 160);
    tick();
    EXPECT_EQ(7, G::getCurrFx());
    Orm::canvas->pointerPressed(200, 160);
    Orm::canvas->pointerDragged(100, 160);
    Orm::canvas->pointerReleased(100, 160);
    tick();
    EXPECT_EQ(0, G::getCurrFx());
}

TEST_F(PlayTest, aTouchOnAnArrowTurns) {
    touchArrow(false);
    EXPECT_EQ(1, G::getCurrFx());
    touchArrow(true);
    EXPECT_EQ(0, G::getCurrFx());
    touchArrow(true);
    EXPECT_EQ(7, G::getCurrFx());
}

TEST_F(PlayTest, theLeftArrowReachesExactlyToItsPicturesEdges) {
    const int32_t w = G::piArrowLeftWhite->getWidth();
    const int32_t h = G::piArrowLeftWhite->getHeight();
    touch(7, 2);
    touch(8, 1);
    touch(8 + w, 2);
    touch(8, 2 + h);
    EXPECT_EQ(0, G::getCurrFx());
    touch(8, 2);
    EXPECT_EQ(7, G::getCurrFx());
    touch(8 + w - 1, 2 + h - 1);
    EXPECT_EQ(6, G::getCurrFx());
}

TEST_F(PlayTest, theRightArrowReachesExactlyToItsPicturesEdges) {
    const int32_t w = G::piArrowRightWhite->getWidth();
    const int32_t h = G::piArrowRightWhite->getHeight();
    const int32_t last = 232;  // eight pixels from the header's end, which is column 240
    const int32_t first = last - w + 1;
    touch(first - 1, 2);
    touch(first, 1);
    touch(last + 1, 2);
    touch(first, 2 + h);
    EXPECT_EQ(0, G::getCurrFx());
    touch(first, 2);
    EXPECT_EQ(1, G::getCurrFx());
    touch(last, 2 + h - 1);
    EXPECT_EQ(2, G::getCurrFx());
}

TEST_F(PlayTest, aTouchElsewhereDoesNothing) {
    touch(120, 160);
    touch(120, 10);
    EXPECT_EQ(0, G::getCurrFx());
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(pending().empty());
}

TEST_F(PlayTest, theSlideIsPlayedForTheEyeAndEndsSharp) {
    key(kRightCode);
    EXPECT_EQ(Names{"Update@16"}, pending());
    EXPECT_EQ(1, G::getCurrFx());
    pass(1000);
    EXPECT_TRUE(pending().empty());
    const Pixels upper = picture(0, 0, 240, 288);
    Main::paintBgAndFx();
    Header::paint(false);
    EXPECT_EQ(picture(0, 0, 240, 288), upper);
}

TEST_F(PlayTest, theArrowIsHeldDownWhileThePicturesMove) {
    const int32_t w = G::piArrowLeftWhite->getWidth();
    const int32_t h = G::piArrowLeftWhite->getHeight();
    const Pixels left = picture(8, 2, w, h);
    const Pixels right = picture(232 - w, 2, w, h);
    key(kRightCode);
    pass(50);
    EXPECT_EQ(left, picture(8, 2, w, h));
    EXPECT_NE(right, picture(232 - w, 2, w, h));
    pass(1000);
    EXPECT_EQ(right, picture(232 - w, 2, w, h));
    key(kLeftCode);
    pass(50);
    EXPECT_NE(left, picture(8, 2, w, h));
    EXPECT_EQ(right, picture(232 - w, 2, w, h));
    pass(1000);
    EXPECT_EQ(left, picture(8, 2, w, h));
}

TEST_F(PlayTest, aTurnDuringASlideStartsTheNextSlide) {
    key(kRightCode);
    pass(50);
    key(kRightCode);
    EXPECT_EQ(2, G::getCurrFx());
    EXPECT_EQ(1U, pending().size());
    pass(1000);
    EXPECT_TRUE(pending().empty());
}

TEST_F(PlayTest, aSlideEndsSharpAfterAPauseToo) {
    key(kRightCode);
    pass(50);
    Orm::setPaused(true);
    pass(60000);
    Orm::setPaused(false);
    pass(1000);
    const Pixels upper = picture(0, 0, 240, 288);
    Main::paintBgAndFx();
    Header::paint(false);
    EXPECT_EQ(picture(0, 0, 240, 288), upper);
}

TEST_F(PlayTest, playProcessesTheTakeAndPlaysIt) {
    touch(kMiddle);
    EXPECT_EQ("Playing", screen());
    EXPECT_TRUE(hasResult());
    EXPECT_EQ(0, G::getLastPlayedFx());
}

TEST_F(PlayTest, duringTheProcessingOnlyTheNameStands) {
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    Orm::canvas->run();
    EXPECT_EQ("Process", screen());
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    EXPECT_FALSE(Header::arrows);
    EXPECT_TRUE(Header::fxName);
}

TEST_F(PlayTest, aSecondPlayOfTheSameEffectProcessesNothing) {
    touch(kMiddle);
    touch(kMiddle);
    ASSERT_EQ("Play", screen());
    folders.write(kResult, TestSounds::wav({7, 7}, 8000));
    folders.remove(kTake);
    touch(kMiddle);
    EXPECT_EQ("Playing", screen());
    EXPECT_EQ(TestSounds::wav({7, 7}, 8000), folders.read(kResult));
}

TEST_F(PlayTest, anotherEffectIsProcessedAgain) {
    touch(kMiddle);
    touch(kMiddle);
    const std::string first = folders.read(kResult);
    key(kRightCode);
    key(kRightCode);
    touch(kMiddle);
    EXPECT_EQ("Playing", screen());
    EXPECT_EQ(2, G::getLastPlayedFx());
    const std::string second = folders.read(kResult);
    EXPECT_NE(first, second);
    touch(kMiddle);
    key(kLeftCode);
    key(kLeftCode);
    touch(kMiddle);
    EXPECT_EQ(0, G::getLastPlayedFx());
    EXPECT_EQ(first, folders.read(kResult));
}

TEST_F(PlayTest, theBackwardsEffectIsTheTakeBackwards) {
    // 16 kHz in pairs of equal samples: their means are the samples.
    putTake({10, 10, 20, 20, 30, 30, 40, 40});
    G::setCurrFx(2);
    touch(kMiddle);
    EXPECT_EQ(TestSounds::wav({40, 30, 20, 10}, 8000), folders.read(kResult));
}

TEST_F(PlayTest, aTakeThatIsGoneIsFatal) {
    folders.remove(kTake);
    touch(kMiddle);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
}

TEST_F(PlayTest, aTakeOfAnotherRateIsFatal) {
    folders.write(kTake, TestSounds::wav({1, 2, 3}, 11025));
    touch(kMiddle);
    EXPECT_EQ(kFileError, fatalBody());
}

TEST_F(PlayTest, aPauseDuringTheProcessingComesBackHere) {
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    Orm::canvas->run();
    Orm::canvas->run();
    ASSERT_EQ("Process", screen());
    Orm::setPaused(true);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(-1, G::getLastPlayedFx());
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    Orm::setPaused(false);
    touch(kMiddle);
    EXPECT_EQ("Playing", screen());
}

TEST_F(PlayTest, optionsAndQuitLeadAway) {
    touch(kLeft);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ("Back", labels()[2]);
    enter(G::statePlay);
    key(OrmCanvas::kKeyRightSoft);
    EXPECT_FALSE(GameInterface::Active);
    EXPECT_TRUE(Orm::isDisposed);
}

TEST_F(PlayTest, everythingElseChangesNothing) {
    const Pixels before = picture();
    key(OrmCanvas::kKeyUp);
    key(OrmCanvas::kKeyDown);
    key(kKeyWithoutMeaning);
    deliver(Orm::EV_T_UPDATE);
    deliver(Orm::EV_T_SYS_PAUSE);
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    deliver(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_LEFT);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(0, G::getCurrFx());
    EXPECT_EQ(before, picture());
}

TEST_F(PlayTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::statePlay->getSubscriptions());
}
