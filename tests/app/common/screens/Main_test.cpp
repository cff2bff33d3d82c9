// SPDX-License-Identifier: MIT
// The plain picture is the background with the current creature in front.
#include "AppImage.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Main.h"
#include "PaImage.h"
#include "PixProps.h"
#include "ScreensTest.h"

namespace {

class MainTest : public ScreensTest {
protected:
    MainTest() {
        G::scr->set(0xFF00FF00);
        G::setCurrFx(2);
    }

    static Pixels pixelsOf(const AppImage& image) {
        return {image.pixels.get(), image.pixels + 240 * 320};
    }
};

}  // namespace

TEST_F(MainTest, theBackgroundFillsTheScreen) {
    AppImage expected(G::scr);
    G::piBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    Main::paintBg();
    EXPECT_EQ(pixelsOf(expected), picture());
    EXPECT_EQ(0xFF000000U, G::scr->get(0, 0) & 0xFF000000U);
    EXPECT_EQ(240, G::piBg->getWidth());
    EXPECT_EQ(320, G::piBg->getHeight());
}

TEST_F(MainTest, theBackgroundStaysInItsClip) {
    AppImage expected(G::scr);
    Bounds clip(20, 30, 40, 50);
    PixProps half(256, 256, 128);
    G::piBg->paintOn(&expected, 0, 0, &clip, &half);
    Main::paintBg(&clip, &half);
    EXPECT_EQ(pixelsOf(expected), picture());
    EXPECT_EQ(0xFF00FF00U, G::scr->get(19, 30));
    EXPECT_NE(0xFF00FF00U, G::scr->get(20, 30));
}

TEST_F(MainTest, theCurrentCreatureStandsInFront) {
    AppImage expected(G::scr);
    G::piBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    const Pixels without = pixelsOf(expected);
    G::fxs[2]->image->paintOn(&expected, 0, 0, G::scrB, nullptr);
    ASSERT_NE(without, pixelsOf(expected));
    Main::paintBgAndFx();
    EXPECT_EQ(pixelsOf(expected), picture());
}

TEST_F(MainTest, bothStayInTheirClip) {
    AppImage expected(G::scr);
    Bounds clip(60, 100, 90, 60);
    G::piBg->paintOn(&expected, 0, 0, &clip, nullptr);
    G::fxs[2]->image->paintOn(&expected, 0, 0, &clip, nullptr);
    Main::paintBgAndFx(&clip);
    EXPECT_EQ(pixelsOf(expected), picture());
}
