// SPDX-License-Identifier: MIT
// A message places its heading and its text in a box that fits them.
#include "AppImage.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "G.h"
#include "Message.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Res.h"
#include "ScreensTest.h"
#include "Str.h"

namespace {

class MessageTest : public ScreensTest {
protected:
    static void expectBounds(int32_t x, int32_t y, int32_t w, int32_t h, Bounded* bounded) {
        Bounds found;
        bounded->getBounds(&found);
        EXPECT_EQ(x, found.x);
        EXPECT_EQ(y, found.y);
        EXPECT_EQ(w, found.w);
        EXPECT_EQ(h, found.h);
    }

    /// The height of a text in a column of 180 pixels.
    static int32_t heightOf(int32_t strId, int32_t fontId) {
        PaTextArea area;
        area.set(strId, fontId, 0xFFFFFFFF, Bounds::kCentre, 0, 0, 180, 100);
        return area.getTextHeight();
    }
};

}  // namespace

TEST_F(MessageTest, aTextStandsInTheMiddleOfItsBox) {
    Message::setText(Str::str_HELP_TXT, G::fntSmall);
    const int32_t t = heightOf(Str::str_HELP_TXT, G::fntSmall);
    ASSERT_GT(t, 0);
    expectBounds(10, 160 - ((t + 60) >> 1) - 24, 220, t + 60, G::psWndBg);
    const int32_t top = Bounds::get(G::psWndBg, Bounds::kEdgeTop);
    expectBounds(30, top + 30, 180, t, Message::paTxt.get());
    EXPECT_EQ(Bounds::kCentre, Message::paTxt->getTextAlign());
    EXPECT_EQ(0xFFFFFFFFU, Message::paTxt->getColour());
    EXPECT_EQ(Res::Null, Message::paTxt2->getText());
}

TEST_F(MessageTest, aHeadingStands30BelowTheTopAndTheBody10BelowTheHeading) {
    Message::setText(Str::str_DLG_TITLE_LOW_MEM, G::fntMedium, Str::str_LOW_MEM_TXT, G::fntSmall);
    const int32_t t1 = heightOf(Str::str_DLG_TITLE_LOW_MEM, G::fntMedium);
    const int32_t t2 = heightOf(Str::str_LOW_MEM_TXT, G::fntSmall);
    expectBounds(10, 160 - ((t1 + t2 + 70) >> 1) - 24, 220, t1 + t2 + 70, G::psWndBg);
    const int32_t top = Bounds::get(G::psWndBg, Bounds::kEdgeTop);
    expectBounds(30, top + 30, 180, t1, Message::paTxt.get());
    expectBounds(30, top + t1 + 40, 180, t2, Message::paTxt2.get());
    EXPECT_EQ(Str::str_DLG_TITLE_LOW_MEM, Message::paTxt->getText());
    EXPECT_EQ(Str::str_LOW_MEM_TXT, Message::paTxt2->getText());
}

TEST_F(MessageTest, textsOf20And40RowsMakeABoxOf130Rows) {
    Res::getFont(G::fntSmall)->setLineHeight(20);
    const int32_t oneLine = Res::addStr("one");
    const int32_t twoLines = Res::addStr("one\ntwo");
    ASSERT_EQ(20, heightOf(oneLine, G::fntSmall));
    ASSERT_EQ(40, heightOf(twoLines, G::fntSmall));
    Message::setText(oneLine, G::fntSmall, twoLines, G::fntSmall);
    expectBounds(10, 71, 220, 130, G::psWndBg);
}

TEST_F(MessageTest, aSingleTextTakesTheBodyAway) {
    Message::setText(Str::str_DLG_TITLE_LOW_MEM, G::fntMedium, Str::str_LOW_MEM_TXT, G::fntSmall);
    Message::setText(Str::str_HELP_TXT, G::fntSmall);
    EXPECT_EQ(Res::Null, Message::paTxt2->getText());
}

TEST_F(MessageTest, paintsTheBoxAndThenTheTexts) {
    G::scr->set(0xFF456789);
    Message::setText(Str::str_DLG_TITLE_LOW_MEM, G::fntMedium, Str::str_LOW_MEM_TXT, G::fntSmall);
    AppImage expected(G::scr);
    G::psWndBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    const Pixels boxOnly(expected.pixels.get(), expected.pixels + 240 * 320);
    Message::paTxt->paintOn(&expected, 0, 0, G::scrB, nullptr);
    const Pixels withHead(expected.pixels.get(), expected.pixels + 240 * 320);
    Message::paTxt2->paintOn(&expected, 0, 0, G::scrB, nullptr);
    const Pixels all(expected.pixels.get(), expected.pixels + 240 * 320);
    EXPECT_NE(boxOnly, withHead);
    EXPECT_NE(withHead, all);
    Message::paint();
    EXPECT_EQ(all, picture());
}

TEST_F(MessageTest, anEmptyBodyIsNotPainted) {
    G::scr->set(0xFF456789);
    Message::setText(Str::str_PLEASE_WAIT, G::fntMedium);
    AppImage expected(G::scr);
    G::psWndBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    Message::paTxt->paintOn(&expected, 0, 0, G::scrB, nullptr);
    Message::paint();
    EXPECT_EQ(Pixels(expected.pixels.get(), expected.pixels + 240 * 320), picture());
}
