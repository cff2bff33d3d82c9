// SPDX-License-Identifier: MIT
// The soft-key bar shows its labels and reports the key that is pressed or touched.
#include "AppImage.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "Event.h"
#include "G.h"
#include "Message.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Payload.h"
#include "Res.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "Str.h"

using Osp::Base::String;

namespace {

class SkBarTest : public ScreensTest {
protected:
    static int32_t press(String* key) { return send(Orm::EV_T_KEY_PRESS, key); }

    static int32_t letGo(String* key) { return send(Orm::EV_T_KEY_RELEASE, key); }

    static int32_t send(String* type, String* subType) {
        Event event(type, subType, nullptr, 0);
        return SkBar::update(&event, false);
    }

    static int32_t touchAt(int32_t x, int32_t y) {
        Event event(Orm::EV_T_POINTER_RELEASE, nullptr, wordToPayload((x << 16) | y), 0);
        return SkBar::update(&event, false);
    }

    static void setThree() {
        SkBar::setStr(Str::str_SK_OPTIONS, Str::str_SK_PLAY, Str::str_SK_QUIT);
    }

    static int32_t width(int32_t strId, int32_t fontId) {
        return Res::getFont(fontId)->getStringWidth(Res::getStr(strId));
    }

    static void
    draw(AppImage& image, int32_t strId, int32_t fontId, int32_t x, int32_t y, uint32_t colour) {
        Res::getFont(fontId)->drawString(Res::getStr(strId), &image, x, y, colour);
    }

    /// The bar without labels over the background.
    static void paintEmptyBar(AppImage& image) {
        Bounds area(0, 288, 240, 32);
        G::piBg->paintOn(&image, 0, 0, &area, nullptr);
        G::psSkBg->paintOn(&image, 0, 0, G::scrB, nullptr);
    }

    static void expectScreen(const AppImage& expected) {
        EXPECT_EQ(Pixels(expected.pixels.get(), expected.pixels + 240 * 320), picture());
    }
};

}  // namespace

TEST_F(SkBarTest, coversTheLast32RowsAndStartsWithoutLabels) {
    Bounds bar;
    G::psSkBg->getBounds(&bar);
    EXPECT_EQ(0, bar.x);
    EXPECT_EQ(288, bar.y);
    EXPECT_EQ(240, bar.w);
    EXPECT_EQ(32, bar.h);
    EXPECT_EQ(0, SkBar::x1);
    EXPECT_EQ(288, SkBar::y1);
    EXPECT_EQ(239, SkBar::x2);
    EXPECT_EQ(319, SkBar::y2);
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    EXPECT_EQ(nullptr, SkBar::pressed);
    EXPECT_EQ(G::fntSmall, SkBar::fntSides);
    EXPECT_EQ(G::fntMedium, SkBar::fntCenter);
    EXPECT_EQ(0xFFFFFFFFU, SkBar::argb);
    EXPECT_EQ(0x80808080U, SkBar::argbPressed);
}

TEST_F(SkBarTest, aKeyPressChoosesItsLabelAndHoldsTheKeyDown) {
    setThree();
    EXPECT_EQ(Str::str_SK_OPTIONS, press(Orm::EV_ST_KEY_LSK));
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
    EXPECT_EQ(Str::str_SK_PLAY, press(Orm::EV_ST_KEY_MSK));
    EXPECT_EQ(Orm::EV_ST_KEY_MSK, SkBar::pressed);
    EXPECT_EQ(Str::str_SK_QUIT, press(Orm::EV_ST_KEY_RSK));
    EXPECT_EQ(Orm::EV_ST_KEY_RSK, SkBar::pressed);
}

TEST_F(SkBarTest, aKeyWithoutALabelChoosesNothingAndChangesNothing) {
    SkBar::setStr(Str::str_SK_YES, Res::Null, Res::Null);
    press(Orm::EV_ST_KEY_LSK);
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_MSK));
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_RSK));
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
}

TEST_F(SkBarTest, onlySoftKeysCount) {
    setThree();
    press(Orm::EV_ST_KEY_LSK);
    for (String* key : {Orm::EV_ST_KEY_UP, Orm::EV_ST_KEY_DOWN, Orm::EV_ST_KEY_LEFT,
                        Orm::EV_ST_KEY_RIGHT, static_cast<String*>(nullptr)}) {
        EXPECT_EQ(Res::Null, press(key));
        EXPECT_EQ(Res::Null, letGo(key));
    }
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
}

TEST_F(SkBarTest, anEqualTextIsNotTheKey) {
    setThree();
    String sameText("KeyLsk");
    EXPECT_EQ(Res::Null, press(&sameText));
}

TEST_F(SkBarTest, lettingGoOfAnySoftKeyEndsThePress) {
    setThree();
    for (String* key : {Orm::EV_ST_KEY_LSK, Orm::EV_ST_KEY_MSK, Orm::EV_ST_KEY_RSK}) {
        press(Orm::EV_ST_KEY_LSK);
        EXPECT_EQ(Res::Null, letGo(key));
        EXPECT_EQ(nullptr, SkBar::pressed);
    }
}

TEST_F(SkBarTest, aTouchBelongsToItsThirdOfTheBar) {
    setThree();
    EXPECT_EQ(Str::str_SK_OPTIONS, touchAt(0, 288));
    EXPECT_EQ(Str::str_SK_OPTIONS, touchAt(79, 300));
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
    EXPECT_EQ(Str::str_SK_PLAY, touchAt(80, 300));
    EXPECT_EQ(Str::str_SK_PLAY, touchAt(159, 319));
    EXPECT_EQ(Orm::EV_ST_KEY_MSK, SkBar::pressed);
    EXPECT_EQ(Str::str_SK_QUIT, touchAt(160, 300));
    EXPECT_EQ(Str::str_SK_QUIT, touchAt(239, 319));
    EXPECT_EQ(Orm::EV_ST_KEY_RSK, SkBar::pressed);
}

TEST_F(SkBarTest, aTouchOutsideTheBarChoosesNothing) {
    setThree();
    EXPECT_EQ(Res::Null, touchAt(120, 287));
    EXPECT_EQ(Res::Null, touchAt(120, 320));
    EXPECT_EQ(Res::Null, touchAt(240, 300));
    Event above(Orm::EV_T_POINTER_RELEASE, nullptr, wordToPayload(-1), 0);
    EXPECT_EQ(Res::Null, SkBar::update(&above, false));
    EXPECT_EQ(nullptr, SkBar::pressed);
}

TEST_F(SkBarTest, aTouchOnAThirdWithoutALabelChoosesNothing) {
    SkBar::setStr(Res::Null, Str::str_SK_OK, Res::Null);
    EXPECT_EQ(Res::Null, touchAt(40, 300));
    EXPECT_EQ(Res::Null, touchAt(200, 300));
    EXPECT_EQ(nullptr, SkBar::pressed);
    EXPECT_EQ(Str::str_SK_OK, touchAt(120, 300));
}

TEST_F(SkBarTest, otherEventsChooseNothing) {
    setThree();
    press(Orm::EV_ST_KEY_LSK);
    for (String* type : {Orm::EV_T_UPDATE, Orm::EV_T_SYS_PAUSE, Orm::EV_T_SYS_RESUME,
                         Orm::EV_T_SYS_DISPOSE, G::EV_T_TIME_OUT}) {
        EXPECT_EQ(Res::Null, send(type, nullptr));
        EXPECT_EQ(Res::Null, send(type, Orm::EV_ST_KEY_LSK));
    }
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
}

TEST_F(SkBarTest, aTouchedKeyStaysHeldDownUntilALabelOrAReleaseFollows) {
    setThree();
    touchAt(40, 300);
    touchAt(120, 100);
    send(Orm::EV_T_UPDATE, nullptr);
    EXPECT_EQ(Orm::EV_ST_KEY_LSK, SkBar::pressed);
    letGo(Orm::EV_ST_KEY_LSK);
    EXPECT_EQ(nullptr, SkBar::pressed);
}

TEST_F(SkBarTest, newLabelsLetGoOfTheKey) {
    setThree();
    press(Orm::EV_ST_KEY_LSK);
    setThree();
    EXPECT_EQ(nullptr, SkBar::pressed);
}

TEST_F(SkBarTest, repaintsOnlyWhenToldTo) {
    setThree();
    G::scr->set(0xFF123456);
    const Pixels before = picture();
    send(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LSK);
    EXPECT_EQ(before, picture());
    Event nothing(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    SkBar::update(&nothing, true);
    EXPECT_NE(before, picture());
    EXPECT_EQ(Pixels(240 * 288, 0xFF123456), picture(0, 0, 240, 288));
}

TEST_F(SkBarTest, sideLabelsStandEightPixelsFromTheEdgesAndTheMiddleOneIsCentred) {
    G::scr->set(0xFF123456);
    setThree();
    AppImage expected(G::scr);
    paintEmptyBar(expected);
    draw(expected, Str::str_SK_OPTIONS, G::fntSmall, 8, 298, 0xFFFFFFFF);
    draw(expected, Str::str_SK_QUIT, G::fntSmall, 231 - width(Str::str_SK_QUIT, G::fntSmall), 298,
         0xFFFFFFFF);
    draw(expected, Str::str_SK_PLAY, G::fntMedium,
         119 - (width(Str::str_SK_PLAY, G::fntMedium) >> 1), 296, 0xFFFFFFFF);
    SkBar::paint(true);
    expectScreen(expected);
}

TEST_F(SkBarTest, withoutSideLabelsOnlyTheMiddleOneIsDrawn) {
    SkBar::setStr(Res::Null, Str::str_SK_OK, Res::Null);
    AppImage expected(G::scr);
    paintEmptyBar(expected);
    draw(expected, Str::str_SK_OK, G::fntMedium, 119 - (width(Str::str_SK_OK, G::fntMedium) >> 1),
         296, 0xFFFFFFFF);
    SkBar::paint(true);
    expectScreen(expected);
}

TEST_F(SkBarTest, withoutLabelsOnlyTheGlassIsDrawn) {
    SkBar::setStr(Res::Null, Res::Null, Res::Null);
    AppImage expected(G::scr);
    paintEmptyBar(expected);
    SkBar::paint(true);
    expectScreen(expected);
}

TEST_F(SkBarTest, theLabelOfTheKeyHeldDownIsGreyAndTheOthersAreWhite) {
    setThree();
    for (String* held : {Orm::EV_ST_KEY_LSK, Orm::EV_ST_KEY_MSK, Orm::EV_ST_KEY_RSK}) {
        const auto colour = [held](String* key) { return key == held ? 0x80808080 : 0xFFFFFFFF; };
        press(held);
        AppImage expected(G::scr);
        paintEmptyBar(expected);
        draw(expected, Str::str_SK_OPTIONS, G::fntSmall, 8, 298, colour(Orm::EV_ST_KEY_LSK));
        draw(expected, Str::str_SK_QUIT, G::fntSmall, 231 - width(Str::str_SK_QUIT, G::fntSmall),
             298, colour(Orm::EV_ST_KEY_RSK));
        draw(expected, Str::str_SK_PLAY, G::fntMedium,
             119 - (width(Str::str_SK_PLAY, G::fntMedium) >> 1), 296, colour(Orm::EV_ST_KEY_MSK));
        SkBar::paint(true);
        expectScreen(expected);
    }
}

TEST_F(SkBarTest, withoutBackgroundTheGlassLiesOverWhatIsThere) {
    G::scr->set(0xFF00FF00);
    AppImage expected(G::scr);
    G::psSkBg->paintOn(&expected, 0, 0, G::scrB, nullptr);
    SkBar::paint(false);
    expectScreen(expected);
}

TEST_F(SkBarTest, paintingTwiceWithBackgroundDarkensNothing) {
    setThree();
    SkBar::paint(true);
    const Pixels once = picture();
    SkBar::paint(true);
    EXPECT_EQ(once, picture());
}

TEST_F(SkBarTest, savingPutsFreshMessagePaintersInPlaceAndRestoringPutsTheKeptOnesBack) {
    setThree();
    Message::setText(Str::str_HELP_TXT, G::fntSmall);
    PaTextArea* const head = Message::paTxt.get();
    PaTextArea* const body = Message::paTxt2.get();
    PaStretcher* const box = G::psWndBg;
    SkBar::save();
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    EXPECT_NE(head, Message::paTxt.get());
    EXPECT_NE(body, Message::paTxt2.get());
    ASSERT_NE(box, G::psWndBg);
    EXPECT_EQ(16, G::psWndBg->getStretchColumn());
    EXPECT_EQ(16, G::psWndBg->getStretchRow());

    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);
    Message::setText(Str::str_SILENT_DEVICE, G::fntMedium);
    press(Orm::EV_ST_KEY_LSK);
    SkBar::restore();
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    EXPECT_EQ(nullptr, SkBar::pressed);
    EXPECT_EQ(head, Message::paTxt.get());
    EXPECT_EQ(body, Message::paTxt2.get());
    EXPECT_EQ(box, G::psWndBg);
    EXPECT_EQ(Str::str_HELP_TXT, Message::paTxt->getText());
}

TEST_F(SkBarTest, aSecondSaveKeepsWhatTheFirstKept) {
    setThree();
    PaStretcher* const box = G::psWndBg;
    SkBar::save();
    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);
    SkBar::save();
    SkBar::restore();
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    EXPECT_EQ(box, G::psWndBg);
}

TEST_F(SkBarTest, restoringWithoutASaveChangesNothing) {
    setThree();
    SkBar::restore();
    EXPECT_EQ((Names{"Options", "Play", "Quit"}), labels());
    EXPECT_NE(nullptr, Message::paTxt);
}

TEST_F(SkBarTest, aQuestionThatStillStandsAtTheEndIsCleanedUp) {
    setThree();
    SkBar::save();
    end();
    EXPECT_EQ(nullptr, SkBar::s_psWndBg);
}
