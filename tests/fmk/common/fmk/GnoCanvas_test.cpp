// SPDX-License-Identifier: MIT
// The canvas maps its key codes, and ignores what this phone does not have.
#include "GnoCanvas.h"
#include "MIDlet.h"
#include "OspGraphics.h"
#include "TestHost.h"

#include <gtest/gtest.h>

namespace {

class Program : public MIDlet {
public:
    void destroyApp(bool unconditional) override { destroyed = unconditional; }

    void pauseApp() override {}

    void startApp() override {}

    bool destroyed = false;
};

}  // namespace

TEST(GnoCanvas, keyCodesBecomeOneBitEach) {
    const GnoCanvas canvas;
    EXPECT_EQ(1, canvas.getGameAction(-1));
    EXPECT_EQ(2, canvas.getGameAction(-2));
    EXPECT_EQ(4, canvas.getGameAction(-3));
    EXPECT_EQ(256, canvas.getGameAction(-9));
}

TEST(GnoCanvas, otherKeyCodesBecomeNothing) {
    const GnoCanvas canvas;
    for (const int32_t code : {0, 1, 53, -10, -32, -33, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(0, canvas.getGameAction(code)) << code;
    }
}

TEST(GnoCanvas, isNeitherWideNorHigh) {
    const GnoCanvas canvas;
    EXPECT_EQ(0, canvas.getWidth());
    EXPECT_EQ(0, canvas.getHeight());
}

TEST(GnoCanvas, isShownOnceItHasAPlatformCanvas) {
    TestHost host;
    GnoCanvas canvas;
    EXPECT_FALSE(canvas.isShown());
    Osp::Graphics::Canvas platformCanvas;
    canvas.SetCanvas(&platformCanvas);
    EXPECT_TRUE(canvas.isShown());
}

TEST(GnoCanvas, ignoresEverythingThePhoneTellsIt) {
    GnoCanvas canvas;
    canvas.hideNotify();
    canvas.showNotify();
    canvas.keyPressed(-1);
    canvas.keyReleased(-1);
    canvas.keyRepeated(-1);
    canvas.paint(nullptr);
    canvas.pointerPressed(1, 2);
    canvas.pointerDragged(1, 2);
    canvas.pointerReleased(1, 2);
    canvas.sizeChanged(320, 240);
    canvas.processEvent(1, 2);
    canvas.repaint();
    canvas.repaint(0, 0, 240, 320);
    canvas.serviceRepaints();
    EXPECT_FALSE(canvas.isShown());
}

TEST(MIDlet, knowsNoPropertiesAndAsksThePlatformForNothing) {
    Program program;
    EXPECT_EQ(nullptr, program.getAppProperty("MIDlet-Name"));
    EXPECT_FALSE(program.platformRequest("http://localhost/"));
    program.notifyDestroyed();
    EXPECT_FALSE(program.destroyed);
}
