// SPDX-License-Identifier: MIT
// The header paints its band, the arrows and the name of the effect.
#include "AppImage.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Header.h"
#include "PaImage.h"
#include "PixProps.h"
#include "Res.h"
#include "ScreensTest.h"
#include "Str.h"

namespace {

class HeaderTest : public ScreensTest {
protected:
    HeaderTest() { G::scr->set(0xFF123456); }

    static void paintBand(AppImage& image) {
        Bounds band(0, 0, 240, 26);
        G::piBg->paintOn(&image, 0, 0, &band, nullptr);
    }

    /// An arrow with its top left corner there.
    static void arrow(AppImage& image, PaImage* painter, int32_t x, PixProps* props) {
        Bounds before;
        painter->getBounds(&before);
        painter->setPos(x, 2);
        painter->paintOn(&image, 0, 0, G::scrB, props);
        painter->setPos(before.x, before.y);
    }

    static void name(AppImage& image, int32_t strId) {
        BitMapFont* font = Res::getFont(G::fntMedium);
        font->drawString(Res::getStr(strId), &image,
                         120 - (font->getStringWidth(Res::getStr(strId)) >> 1), 6, 0xFFFFFFFF);
    }

    static void expectScreen(const AppImage& expected) {
        EXPECT_EQ(Pixels(expected.pixels.get(), expected.pixels + 240 * 320), picture());
    }
};

}  // namespace

TEST_F(HeaderTest, isABandOf26RowsAcrossTheTop) {
    EXPECT_EQ(0, Header::bounds->x);
    EXPECT_EQ(0, Header::bounds->y);
    EXPECT_EQ(240, Header::bounds->w);
    EXPECT_EQ(26, Header::bounds->h);
    EXPECT_EQ(G::fntMedium, Header::fntFxName);
    EXPECT_EQ(0xFFFFFFFFU, Header::argb);
    EXPECT_EQ(8, Header::margx);
    EXPECT_EQ(2, Header::margyArrows);
    EXPECT_EQ(6, Header::margyName);
    EXPECT_EQ(128, Header::halfOp->opacity);
}

TEST_F(HeaderTest, withoutFlagsOnlyTheBackgroundIsPainted) {
    Header::set(false, false, true, true);
    AppImage expected(G::scr);
    paintBand(expected);
    Header::paint(true);
    expectScreen(expected);
}

TEST_F(HeaderTest, withoutAnythingThePictureStays) {
    Header::set(false, false, false, false);
    const Pixels before = picture();
    Header::paint(false);
    EXPECT_EQ(before, picture());
}

TEST_F(HeaderTest, arrowsAndNameStandInTheirPlaces) {
    G::setCurrFx(3);
    Header::set(true, true, false, false);
    AppImage expected(G::scr);
    paintBand(expected);
    arrow(expected, G::piArrowLeftWhite, 8, nullptr);
    arrow(expected, G::piArrowRightWhite, 233 - G::piArrowRightWhite->getWidth(), nullptr);
    name(expected, Str::str_FX_HIGH_PITCH);
    Header::paint(true);
    expectScreen(expected);
}

TEST_F(HeaderTest, aPressedArrowIsHalfTransparent) {
    PixProps half(256, 256, 128);
    Header::set(true, false, true, false);
    AppImage expected(G::scr);
    paintBand(expected);
    arrow(expected, G::piArrowLeftWhite, 8, &half);
    arrow(expected, G::piArrowRightWhite, 233 - G::piArrowRightWhite->getWidth(), nullptr);
    Header::paint(true);
    expectScreen(expected);

    Header::set(true, false, false, true);
    expected.set(0xFF123456);
    G::scr->set(0xFF123456);
    arrow(expected, G::piArrowLeftWhite, 8, nullptr);
    arrow(expected, G::piArrowRightWhite, 233 - G::piArrowRightWhite->getWidth(), &half);
    Header::paint(false);
    expectScreen(expected);
}

TEST_F(HeaderTest, theNameAloneIsCentred) {
    Header::set(false, true, false, false);
    AppImage expected(G::scr);
    name(expected, Str::str_FX_NO_EFFECT);
    Header::paint(false);
    expectScreen(expected);
}

TEST_F(HeaderTest, theNameFollowsTheLanguage) {
    Res::setCurrLangIndex(1);
    Header::set(false, true, false, false);
    AppImage expected(G::scr);
    name(expected, Str::str_FX_NO_EFFECT);
    Header::paint(false);
    expectScreen(expected);
    EXPECT_EQ("Kein Effekt", text(Str::str_FX_NO_EFFECT));
}

TEST_F(HeaderTest, anEffectWithoutANameHasNone) {
    G::fxs[0]->name = Res::Null;
    Header::set(false, true, false, false);
    const Pixels before = picture();
    Header::paint(false);
    EXPECT_EQ(before, picture());
}
