// SPDX-License-Identifier: MIT
// The canvas turns touches, drags and keys into events, and pauses when the display is turned.
#include "AppImage.h"
#include "Assembly.h"
#include "CanvasGraphics.h"
#include "LoopHost.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "TestScreen.h"

#include <gtest/gtest.h>

using Heard = std::vector<std::string>;

namespace {

class OrmCanvasTest : public testing::Test {
protected:
    void SetUp() override {
        Assembly::install();
        midlet = new Murmelo();
        canvas = Orm::canvas;
        screen =
            new TestScreen({Orm::EV_T_KEY_PRESS, Orm::EV_T_KEY_RELEASE, Orm::EV_T_POINTER_RELEASE});
        Orm::registerListener(screen);
    }

    void TearDown() override {
        delete screen;
        delete midlet;
    }

    /// Delivers everything that is due; returns the events in order.
    const Heard& delivered() {
        while (Orm::msUntilDue() == 0) {
            canvas->run();
        }
        return screen->heard;
    }

    LoopHost host;
    Murmelo* midlet = nullptr;
    OrmCanvas* canvas = nullptr;
    TestScreen* screen = nullptr;
};

}  // namespace

TEST_F(OrmCanvasTest, aDragOf99PixelsIsNoKeyAnd100AreTheLeftKey) {
    canvas->pointerPressed(10, 10);
    canvas->pointerDragged(109, 300);
    EXPECT_TRUE(delivered().empty());
    canvas->pointerDragged(110, 10);
    EXPECT_EQ((Heard{"KeyPress/KeyLeft", "KeyRelease/KeyLeft"}), delivered());
}

TEST_F(OrmCanvasTest, aDragTo100PixelsLeftIsTheRightKey) {
    canvas->pointerPressed(200, 10);
    canvas->pointerDragged(101, 10);
    EXPECT_TRUE(delivered().empty());
    canvas->pointerDragged(100, 10);
    EXPECT_EQ((Heard{"KeyPress/KeyRight", "KeyRelease/KeyRight"}), delivered());
}

TEST_F(OrmCanvasTest, aLongDragIsOneKeyForEach100Pixels) {
    canvas->pointerPressed(0, 0);
    for (int32_t x = 0; x <= 239; x++) {
        canvas->pointerDragged(x, 0);
    }
    EXPECT_EQ(4U, delivered().size());  // at 100 and at 200
}

TEST_F(OrmCanvasTest, aDragWithoutAPressIsNothing) {
    canvas->pointerDragged(200, 10);
    EXPECT_TRUE(delivered().empty());
    canvas->pointerPressed(0, -1);  // a press at row -1 looks like none
    canvas->pointerDragged(200, 10);
    EXPECT_TRUE(delivered().empty());
}

TEST_F(OrmCanvasTest, aReleaseEndsTheDrag) {
    canvas->pointerPressed(0, 0);
    canvas->pointerReleased(0, 0);
    canvas->pointerDragged(150, 0);
    EXPECT_EQ(Heard{"PointerRelease"}, delivered());
}

TEST_F(OrmCanvasTest, aReleaseCarriesItsPlacePacked) {
    canvas->pointerReleased(3, 5);
    delivered();
    EXPECT_EQ(0x00030005, screen->lastWord);
}

TEST_F(OrmCanvasTest, aReleaseAboveThePictureKeepsItsWordAsItComes) {
    canvas->pointerReleased(3, -1);
    delivered();
    EXPECT_EQ(-1, screen->lastWord);  // the sign of y fills x's half
}

TEST_F(OrmCanvasTest, keyCodesHaveTheirNames) {
    for (int32_t code = -1; code >= -8; code--) {
        canvas->keyPressed(code);
    }
    canvas->keyReleased(OrmCanvas::kKeyMiddle);
    EXPECT_EQ((Heard{"KeyPress/KeyUp", "KeyPress/KeyDown", "KeyPress/KeyLeft", "KeyPress/KeyRight",
                     "KeyPress/KeyMsk", "KeyPress/KeyLsk", "KeyPress/KeyRsk", "KeyPress",
                     "KeyRelease/KeyMsk"}),
              delivered());
}

TEST_F(OrmCanvasTest, inputIsDroppedWhilePaused) {
    canvas->pointerPressed(0, 0);
    canvas->hideNotify();
    canvas->keyPressed(OrmCanvas::kKeyUp);
    canvas->keyReleased(OrmCanvas::kKeyUp);
    canvas->pointerDragged(200, 0);
    canvas->pointerReleased(200, 0);
    canvas->showNotify();
    EXPECT_TRUE(delivered().empty());
}

TEST_F(OrmCanvasTest, aReleaseInAPauseIsDroppedAndTheDragGoesOn) {
    canvas->pointerPressed(0, 0);
    canvas->hideNotify();
    canvas->pointerReleased(0, 0);
    canvas->showNotify();
    canvas->pointerDragged(100, 0);
    EXPECT_EQ((Heard{"KeyPress/KeyLeft", "KeyRelease/KeyLeft"}), delivered());
}

TEST_F(OrmCanvasTest, aPressInAPauseBeginsADrag) {
    canvas->hideNotify();
    canvas->pointerPressed(50, 0);
    canvas->pointerDragged(150, 0);  // a move is dropped, and ends nothing
    canvas->showNotify();
    canvas->pointerDragged(149, 0);
    EXPECT_TRUE(delivered().empty());
    canvas->pointerDragged(150, 0);
    EXPECT_EQ((Heard{"KeyPress/KeyLeft", "KeyRelease/KeyLeft"}), delivered());
}

TEST_F(OrmCanvasTest, twoDueEventsTakeTwoTicks) {
    canvas->keyPressed(OrmCanvas::kKeyUp);
    canvas->keyPressed(OrmCanvas::kKeyDown);
    canvas->run();
    EXPECT_EQ(Heard{"KeyPress/KeyUp"}, screen->heard);
    canvas->run();
    EXPECT_EQ(2U, screen->heard.size());
}

TEST_F(OrmCanvasTest, anEventIsDueInTheMillisecondOfItsTime) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 10);
    host.nowMs = 9;
    canvas->run();
    EXPECT_TRUE(screen->heard.empty());
    host.nowMs = 10;
    canvas->run();
    EXPECT_EQ(Heard{"KeyPress"}, screen->heard);
}

TEST_F(OrmCanvasTest, turningTheDisplayPausesAndTurningItBackResumes) {
    canvas->sizeChanged(320, 240);
    EXPECT_TRUE(OrmCanvas::wrongRes);
    EXPECT_TRUE(Orm::isPaused());
    canvas->sizeChanged(240, 320);
    EXPECT_FALSE(OrmCanvas::wrongRes);
    EXPECT_FALSE(Orm::isPaused());
    canvas->sizeChanged(240, 240);  // square and running: nothing
    EXPECT_FALSE(Orm::isPaused());
}

TEST_F(OrmCanvasTest, paintsItsPictureUnlessTheDisplayIsTurned) {
    std::vector<uint16_t> pixels(240 * 320);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), 240, 320);
    canvas->getScreen()->set(0xFFFFFFFF);
    canvas->getScreen()->set(0x00FF0000, 239, 319);  // the alpha byte is not looked at
    canvas->paint(&graphics);
    EXPECT_EQ(0xFFFF, pixels[0]);
    EXPECT_EQ(0xF800, pixels[240 * 320 - 1]);
    OrmCanvas::wrongRes = true;
    canvas->getScreen()->set(0xFF000000);
    canvas->paint(&graphics);
    EXPECT_EQ(0xFFFF, pixels[0]);
}

TEST_F(OrmCanvasTest, paintsOnlyWhatWasPaintedSinceTheLastTime) {
    std::vector<uint16_t> pixels(240 * 320);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), 240, 320);
    canvas->getScreen()->set(0xFFFFFFFF);
    canvas->paintChanges(&graphics);
    EXPECT_EQ(std::vector<uint16_t>(240 * 320, 0xFFFF), pixels);
    std::fill(pixels.begin(), pixels.end(), uint16_t{0x1234});
    canvas->paintChanges(&graphics);
    EXPECT_EQ(std::vector<uint16_t>(240 * 320, 0x1234), pixels);
    canvas->getScreen()->set(0xFFFF0000, 7, 10, 3, 2);
    canvas->getScreen()->set(0xFFFF0000, 8, 319);
    canvas->paintChanges(&graphics);
    for (size_t y = 0; y < 320; y++) {
        const bool isPainted = y == 10 || y == 11 || y == 319;
        ASSERT_EQ(isPainted ? 0xF800 : 0x1234, pixels[y * 240 + 8]) << y;
        ASSERT_EQ(isPainted ? 0xFFFF : 0x1234, pixels[y * 240 + 239]) << y;
    }
    canvas->paint(&graphics);  // all of it, whenever that is asked for
    EXPECT_EQ(0xFFFF, pixels[0]);
    EXPECT_EQ(0xF800, pixels[10 * 240 + 8]);
}

TEST_F(OrmCanvasTest, whatTheMessageOfATurnedDisplayCoveredIsPaintedAfterIt) {
    class Canvas : public OrmCanvas {
    public:
        void paintWRMessage(GnoGraphics* g) override {
            g->setColor(0);
            g->fillRect(0, 0, 240, 320);
        }
    };

    Canvas turned;
    turned.getScreen()->set(0xFFFFFFFF);
    std::vector<uint16_t> pixels(240 * 320);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), 240, 320);
    turned.paintChanges(&graphics);
    OrmCanvas::wrongRes = true;
    turned.paintChanges(&graphics);
    EXPECT_EQ(std::vector<uint16_t>(240 * 320, 0), pixels);
    OrmCanvas::wrongRes = false;
    turned.paintChanges(&graphics);
    EXPECT_EQ(std::vector<uint16_t>(240 * 320, 0xFFFF), pixels);
}

TEST_F(OrmCanvasTest, paintingAllOfItTakesNothingFromTheNextChanges) {
    std::vector<uint16_t> all(240 * 320);
    std::vector<uint16_t> pixels(240 * 320);
    CanvasGraphics whole(reinterpret_cast<unsigned char*>(all.data()), 240, 320);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), 240, 320);
    canvas->paintChanges(&graphics);
    canvas->getScreen()->set(0xFFFF0000, 5, 7);
    std::fill(pixels.begin(), pixels.end(), uint16_t{0x1234});
    canvas->paint(&whole);
    canvas->paintChanges(&graphics);
    EXPECT_EQ(240, std::count_if(pixels.begin(), pixels.end(),
                                 [](uint16_t pixel) { return pixel != 0x1234; }));
    EXPECT_EQ(0xF800, pixels[7 * 240 + 5]);
}

TEST_F(OrmCanvasTest, whatIsPaintedWhileTheDisplayIsTurnedIsShownLater) {
    std::vector<uint16_t> pixels(240 * 320);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), 240, 320);
    canvas->paintChanges(&graphics);
    OrmCanvas::wrongRes = true;
    canvas->getScreen()->set(0xFFFFFFFF);
    canvas->paintChanges(&graphics);
    EXPECT_EQ(0, pixels[0]);
    OrmCanvas::wrongRes = false;
    canvas->paintChanges(&graphics);
    EXPECT_EQ(std::vector<uint16_t>(240 * 320, 0xFFFF), pixels);
}

TEST_F(OrmCanvasTest, hasNoSizeAndNamesGameActionsByBits) {
    EXPECT_EQ(0, canvas->getWidth());
    EXPECT_EQ(0, canvas->getHeight());
    EXPECT_EQ(1, canvas->getGameAction(-1));
    EXPECT_EQ(4, canvas->getGameAction(-3));
    EXPECT_EQ(256, canvas->getGameAction(-9));
    EXPECT_EQ(0, canvas->getGameAction(-10));
    EXPECT_EQ(0, canvas->getGameAction(0));
}

TEST_F(OrmCanvasTest, theMidletPausesAndDestroysThroughTheScheduler) {
    midlet->pauseApp();
    EXPECT_TRUE(Orm::isPaused());
    midlet->destroyApp(false);
    EXPECT_FALSE(Orm::isDisposed);
    midlet->destroyApp(true);
    EXPECT_TRUE(Orm::isDisposed);
    EXPECT_FALSE(Orm::isPaused());
}
