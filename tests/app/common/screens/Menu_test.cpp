// SPDX-License-Identifier: MIT
// A menu places, focuses and paints its entries, and reports the one that is chosen.
#include "AppImage.h"
#include "Array.h"
#include "ArrFunc.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "Event.h"
#include "G.h"
#include "Main.h"
#include "Menu.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaStretcher.h"
#include "PaTextLabel.h"
#include "Payload.h"
#include "Res.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "Str.h"

#include <algorithm>

using Osp::Base::String;

namespace {

class MenuTest : public ScreensTest {
protected:
    MenuTest() { Menu::init(Str::str_LangNameIds); }

    static int32_t press(String* key) {
        Event event(Orm::EV_T_KEY_PRESS, key, nullptr, 0);
        return Menu::update(&event);
    }

    static int32_t touchAt(int32_t x, int32_t y) {
        Event event(Orm::EV_T_POINTER_RELEASE, nullptr, wordToPayload((x << 16) | y), 0);
        return Menu::update(&event);
    }

    static int32_t id(int32_t index) { return Str::str_LangNameIds[index]; }

    static int32_t rowTop(int32_t index) { return Menu::y + 10 + index * (Menu::rh + 12); }

    /// Index of the entry whose label has the colour of the focus.
    static int32_t focusSeen() {
        int32_t seen = -1;
        for (int32_t i = 0; i < length(Menu::entries); i++) {
            const Pixels row = picture(10, rowTop(i), 220, Menu::rh + 12);
            seen = std::count(row.begin(), row.end(), 0xFFFFFFFFU) == 0 ? i : seen;
        }
        return seen;
    }
};

}  // namespace

TEST_F(MenuTest, hasOneLabelForEachIdAndFocusesTheFirst) {
    ASSERT_EQ(5, length(Menu::entries));
    ASSERT_EQ(5, length(Menu::strIds));
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(id(i), Menu::strIds[i]);
        EXPECT_EQ(id(i), Menu::entries[i]->getText());
        EXPECT_EQ(G::fntMedium, Menu::entries[i]->getFont());
    }
    EXPECT_NE(Str::str_LangNameIds, Menu::strIds);
    EXPECT_EQ(0, Menu::getFocusedIndex());
    EXPECT_EQ(id(0), Menu::getFocusedStrId());
}

TEST_F(MenuTest, theIdsAreCopied) {
    int32_t* ids = newArray<int32_t>(2);
    ids[0] = Str::str_SK_OK;
    ids[1] = Str::str_SK_NO;
    Menu::init(ids);
    ids[0] = Str::str_SK_YES;
    deleteArrFunc(ids);
    EXPECT_EQ(Str::str_SK_OK, Menu::getFocusedStrId());
    EXPECT_EQ(2, length(Menu::entries));
}

TEST_F(MenuTest, aNewListForgetsTheColourAndTheFocusOfTheOldOne) {
    Menu::setBgCol(0x00123456);
    EXPECT_EQ(0xFF123456U, Menu::bgCol);
    Menu::setFocusedIndex(3);
    Menu::fntId = G::fntSmall;
    Menu::init(Str::str_LangNameIds);
    EXPECT_EQ(G::fntMedium, Menu::fntId);
    EXPECT_EQ(0U, Menu::bgCol);
    EXPECT_EQ(Res::Null, Menu::bgImgId);
    EXPECT_EQ(0, Menu::getFocusedIndex());
}

TEST_F(MenuTest, rowsAreComfortableAndTheListIsCentredAboveTheSoftKeys) {
    EXPECT_EQ(Res::getFont(G::fntMedium)->getLineHeight(), Menu::rh);
    EXPECT_GE(Menu::rh + 12, 24);
    const int32_t height = 5 * (Menu::rh + 12) + 20;
    EXPECT_EQ((320 - height) / 2 - 24, Menu::y);
    EXPECT_GE(Menu::y, 0);
    EXPECT_LE(Menu::y + height, 288);
    Menu::paint();
    EXPECT_EQ(height, Bounds::getHeight(G::psWndBg));
    for (int32_t i = 0; i < 5; i++) {
        const int32_t middle = Menu::entries[i]->getX() + Menu::entries[i]->getWidth() / 2;
        EXPECT_NEAR(120, middle, 1);
    }
}

TEST_F(MenuTest, onTheRecorderItLeavesEveryFaceFree) {
    constexpr int32_t kLastOfFaces = 169;  // as drawn: tests/art/faces.py
    const Array<int32_t> three(newArray<int32_t>(3));
    std::copy(Str::str_LangNameIds, Str::str_LangNameIds + 3, three.get());
    Menu::init(three);
    Menu::layOnRecorder();
    G::scr->set(0xFF00FF00);
    Menu::paint();
    EXPECT_EQ(Pixels(static_cast<size_t>(240 * (kLastOfFaces + 1)), 0xFF00FF00),
              picture(0, 0, 240, kLastOfFaces + 1));
    EXPECT_GE(288, Menu::y + Bounds::getHeight(G::psWndBg));
    EXPECT_EQ(id(1), touchAt(120, rowTop(1) + 1));
}

TEST_F(MenuTest, aListTooLongForTheRecorderStaysInTheMiddle) {
    const int32_t middle = Menu::y;
    Menu::layOnRecorder();
    EXPECT_EQ(middle, Menu::y);
}

TEST_F(MenuTest, theFocusBarLiesUnderTheFocusedRow) {
    for (int32_t i = 0; i < 5; i++) {
        Menu::setFocusedIndex(i);
        Menu::paint();
        Bounds bar;
        G::psFocusBar->getBounds(&bar);
        EXPECT_EQ(10, bar.x);
        EXPECT_EQ(Menu::y + 10 + i * (Menu::rh + 12), bar.y);
        EXPECT_EQ(i, focusSeen());
        EXPECT_EQ(0xFFFFFFFFU, Menu::entries[i]->getColour());
    }
}

TEST_F(MenuTest, theFocusedEntryIsInkOnTheFocusBar) {
    Menu::setFocusedIndex(1);
    Menu::paint();
    const Pixels shown = picture();
    // Once more by hand: the bar of the focus, and on it the label in black of alpha 160.
    Main::paintBgAndFx(G::psWndBg);
    G::psWndBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    G::psFocusBar->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    PaTextLabel label(id(1), G::fntMedium, 0xA0000000);
    Bounds::setPos(&label, Menu::entries[1]->getX(), Menu::entries[1]->getY());
    label.paintOn(G::scr, 0, 0, G::scrB, nullptr);
    const Pixels byHand = picture(10, rowTop(1), 220, Menu::rh + 12);
    Menu::paint();
    EXPECT_TRUE(byHand == picture(10, rowTop(1), 220, Menu::rh + 12));
    EXPECT_TRUE(shown == picture());
}

TEST_F(MenuTest, otherEntriesKeepTheirOwnColour) {
    Menu::entries[2]->setColour(0xFFFF0000);
    Menu::paint();
    EXPECT_EQ(0xFFFF0000U, Menu::entries[2]->getColour());
    const Pixels row = picture(10, rowTop(2), 220, Menu::rh + 12);
    EXPECT_EQ(0, std::count(row.begin(), row.end(), 0xFFFFFFFFU));
    EXPECT_GT(std::count(row.begin(), row.end(), 0xFFFF0000U), 0);
}

TEST_F(MenuTest, anIdIsFocusedWhereItStandsFirst) {
    Menu::setFocusedStrId(id(3));
    EXPECT_EQ(3, Menu::getFocusedIndex());
    Menu::setFocusedStrId(Str::str_SK_OK);
    EXPECT_EQ(0, Menu::getFocusedIndex());
    int32_t* ids = newArray<int32_t>(3);
    ids[0] = Str::str_SK_NO;
    ids[1] = Str::str_SK_OK;
    ids[2] = Str::str_SK_OK;
    Menu::init(ids);
    deleteArrFunc(ids);
    Menu::setFocusedStrId(Str::str_SK_OK);
    EXPECT_EQ(1, Menu::getFocusedIndex());
}

TEST_F(MenuTest, downAndUpMoveTheFocusAroundBothEnds) {
    for (int32_t i = 1; i <= 5; i++) {
        EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_DOWN));
        EXPECT_EQ(i % 5, Menu::getFocusedIndex());
    }
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_UP));
    EXPECT_EQ(4, Menu::getFocusedIndex());
    EXPECT_EQ(4, focusSeen());
}

TEST_F(MenuTest, theMiddleKeyChoosesTheFocusedEntry) {
    Menu::setFocusedIndex(2);
    EXPECT_EQ(id(2), press(Orm::EV_ST_KEY_MSK));
    EXPECT_EQ(2, Menu::getFocusedIndex());
}

TEST_F(MenuTest, otherKeysAndEventsChooseNothing) {
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_LSK));
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_RSK));
    EXPECT_EQ(Res::Null, press(Orm::EV_ST_KEY_LEFT));
    EXPECT_EQ(Res::Null, press(nullptr));
    Event release(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_MSK, nullptr, 0);
    EXPECT_EQ(Res::Null, Menu::update(&release));
    Event update(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    EXPECT_EQ(Res::Null, Menu::update(&update));
    EXPECT_EQ(0, Menu::getFocusedIndex());
}

TEST_F(MenuTest, anEmptyMenuChoosesNothingWhateverIsPressed) {
    int32_t* none = newArray<int32_t>(0);
    Menu::init(none);
    deleteArrFunc(none);
    for (String* key : {Orm::EV_ST_KEY_UP, Orm::EV_ST_KEY_DOWN, Orm::EV_ST_KEY_MSK}) {
        EXPECT_EQ(Res::Null, press(key));
        EXPECT_EQ(0, Menu::getFocusedIndex());
    }
    EXPECT_EQ(Res::Null, touchAt(120, Menu::y + 10));
    EXPECT_EQ(Res::Null, Menu::getFocusedStrId());
}

TEST_F(MenuTest, aTouchOnARowFocusesAndChoosesIt) {
    EXPECT_EQ(id(3), touchAt(120, rowTop(3)));
    EXPECT_EQ(3, Menu::getFocusedIndex());
    EXPECT_EQ(3, focusSeen());
    EXPECT_EQ(id(3), touchAt(10, rowTop(4) - 1));
    EXPECT_EQ(id(4), touchAt(229, rowTop(4)));
    EXPECT_EQ(id(0), touchAt(120, rowTop(0)));
}

TEST_F(MenuTest, aTouchBesideTheRowsChoosesNothing) {
    EXPECT_EQ(Res::Null, touchAt(9, rowTop(1)));
    EXPECT_EQ(Res::Null, touchAt(230, rowTop(1)));
    EXPECT_EQ(Res::Null, touchAt(120, rowTop(0) - 1));
    EXPECT_EQ(Res::Null, touchAt(120, rowTop(5)));
    EXPECT_EQ(0, Menu::getFocusedIndex());
}

TEST_F(MenuTest, aTouchOnTheMiddleSoftKeyChoosesTheFocusedEntry) {
    SkBar::setStr(Str::str_SK_BACK, Str::str_SK_SELECT, Str::str_SK_QUIT);
    Menu::setFocusedIndex(1);
    EXPECT_EQ(id(1), touchAt(80, 288));
    EXPECT_EQ(id(1), touchAt(159, 319));
    EXPECT_EQ(Res::Null, touchAt(79, 300));
    EXPECT_EQ(Res::Null, touchAt(160, 300));
    SkBar::setStr(Str::str_SK_BACK, Res::Null, Str::str_SK_QUIT);
    EXPECT_EQ(Res::Null, touchAt(120, 300));
}

TEST_F(MenuTest, paintingTwiceDarkensNothing) {
    Main::paintBgAndFx();
    Menu::paint();
    const Pixels once = picture();
    Menu::paint();
    EXPECT_EQ(once, picture());
}

TEST_F(MenuTest, aMovedFocusLeavesNoTrace) {
    Main::paintBgAndFx();
    Menu::paint();
    const Pixels first = picture();
    press(Orm::EV_ST_KEY_DOWN);
    press(Orm::EV_ST_KEY_UP);
    EXPECT_EQ(first, picture());
}

TEST_F(MenuTest, aColourFillsEverythingAboveTheSoftKeys) {
    Menu::setBgCol(0x00202020);
    G::scr->set(0xFF00FF00);
    Menu::paint();
    EXPECT_EQ(0xFF202020U, G::scr->get(0, 0));
    EXPECT_EQ(0xFF202020U, G::scr->get(239, 287));
    EXPECT_EQ(Pixels(240 * 32, 0xFF00FF00), picture(0, 288, 240, 32));
}

TEST_F(MenuTest, aPictureFillsWhatItCovers) {
    Menu::setBgImg(Res::addImage(new AppImage(240, 20, 0xFF0000FF)));
    G::scr->set(0xFF00FF00);
    Menu::paint();
    EXPECT_EQ(0xFF0000FFU, G::scr->get(0, 0));
    EXPECT_EQ(0xFF0000FFU, G::scr->get(239, 19));
    EXPECT_EQ(0xFF00FF00U, G::scr->get(0, 20));
}

TEST_F(MenuTest, labelsFollowTheLanguage) {
    int32_t* ids = newArray<int32_t>(1);
    ids[0] = Str::str_SK_RECORD;
    Menu::init(ids);
    deleteArrFunc(ids);
    Menu::paint();
    const int32_t english = Menu::entries[0]->getWidth();
    Res::setCurrLangIndex(2);
    Menu::paint();
    EXPECT_EQ(Res::getFont(G::fntMedium)->getStringWidth(Res::getStr(Str::str_SK_RECORD)),
              Menu::entries[0]->getWidth());
    EXPECT_NE(english, Menu::entries[0]->getWidth());
}
