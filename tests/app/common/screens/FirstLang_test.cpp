// SPDX-License-Identifier: MIT
// The first choice of the language: moving, choosing and quitting.
#include "AppImage.h"
#include "G.h"
#include "GameInterface.h"
#include "Menu.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspGraphics.h"
#include "Res.h"
#include "ScreensTest.h"
#include "State.h"

namespace {

constexpr int32_t kUp = -1;
constexpr int32_t kDown = -2;
constexpr int32_t kMiddleKey = -5;
constexpr int32_t kRightKey = -7;

class FirstLangTest : public ScreensTest {
protected:
    FirstLangTest() { enter(G::stateFirstLang); }

    static void touchRow(int32_t index) {
        touch(120, Menu::y + 10 + index * (Menu::rh + 12) + (Menu::rh + 12) / 2);
    }

    std::string settings() const { return folders.read("config/settings"); }
};

}  // namespace

TEST_F(FirstLangTest, offersFiveLanguagesWithEnglishFocused) {
    EXPECT_EQ(0, Menu::getFocusedIndex());
    EXPECT_EQ("English", text(Menu::strIds[0]));
    EXPECT_EQ("Deutsch", text(Menu::strIds[1]));
    EXPECT_EQ("Español", text(Menu::strIds[2]));
    EXPECT_EQ("Français", text(Menu::strIds[3]));
    EXPECT_EQ("Italiano", text(Menu::strIds[4]));
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
    EXPECT_EQ(0xFF202020U, Menu::bgCol);
    EXPECT_EQ(0xFF202020U, G::scr->get(0, 0));
    EXPECT_TRUE(pending().empty());
}

TEST_F(FirstLangTest, movingTheFocusShowsTheSoftKeysInThatLanguageAtOnceAndSavesNothing) {
    const Names middleKeys = {"Select", "Wählen", "Seleccion.", "Sélect.", "Seleziona"};
    for (int32_t i = 1; i <= 5; i++) {
        const Pixels before = picture(0, 288, 240, 32);
        key(kDown);
        EXPECT_EQ(i % 5, Res::getCurrLangIndex());
        EXPECT_EQ(middleKeys[static_cast<size_t>(i % 5)], labels()[1]);
        EXPECT_NE(before, picture(0, 288, 240, 32));
    }
    EXPECT_EQ("FirstLang", screen());
    EXPECT_EQ("", settings());
}

TEST_F(FirstLangTest, theFocusWrapsAroundUpwards) {
    key(kUp);
    EXPECT_EQ(4, Res::getCurrLangIndex());
}

TEST_F(FirstLangTest, theMiddleKeyTakesTheFocusedLanguageAndGoesOn) {
    key(kDown);
    key(kDown);
    key(kMiddleKey);
    EXPECT_EQ("Splash", screen());
    EXPECT_EQ(2, G::getSavedLang());
    EXPECT_EQ(2, Res::getCurrLangIndex());
    EXPECT_EQ(0xFF101010U, Murmelo::pBkgColor->GetRGB32());
}

TEST_F(FirstLangTest, aTouchOnSelectTakesTheFocusedLanguage) {
    touch(kMiddle);
    EXPECT_EQ("Splash", screen());
    EXPECT_EQ(0, G::getSavedLang());
}

TEST_F(FirstLangTest, aTouchOnAnotherLanguageOnlyMovesTheFocus) {
    touchRow(3);
    EXPECT_EQ("FirstLang", screen());
    EXPECT_EQ(3, Menu::getFocusedIndex());
    EXPECT_EQ(3, Res::getCurrLangIndex());
    EXPECT_EQ("", settings());
    EXPECT_EQ(0xFF202020U, Murmelo::pBkgColor->GetRGB32());
}

TEST_F(FirstLangTest, aTouchOnTheFocusedLanguageTakesIt) {
    touchRow(3);
    touchRow(3);
    EXPECT_EQ("Splash", screen());
    EXPECT_EQ(3, G::getSavedLang());
}

TEST_F(FirstLangTest, quittingSavesNothing) {
    key(kDown);
    key(kRightKey);
    EXPECT_FALSE(GameInterface::Active);
    EXPECT_TRUE(Orm::isDisposed);
    EXPECT_EQ("", settings());
    EXPECT_EQ(-1, G::getSavedLang());
}

TEST_F(FirstLangTest, aTouchOnQuitEnds) {
    touch(kRight);
    EXPECT_FALSE(GameInterface::Active);
    EXPECT_TRUE(Orm::isDisposed);
}

TEST_F(FirstLangTest, everythingElseChangesNothing) {
    const Pixels before = picture();
    key(OrmCanvas::kKeyLeft);
    key(OrmCanvas::kKeyRight);
    key(OrmCanvas::kKeyLeftSoft);
    key(kKeyWithoutMeaning);
    touch(kLeft);
    touch(120, 2);
    deliver(Orm::EV_T_UPDATE);
    deliver(Orm::EV_T_SYS_PAUSE);
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("FirstLang", screen());
    EXPECT_EQ(0, Res::getCurrLangIndex());
    EXPECT_TRUE(GameInterface::Active);
    EXPECT_EQ(before, picture());
}

TEST_F(FirstLangTest, settingsThatCannotBeWrittenKeepTheLanguageForThisRun) {
    host.failNth("AppRegistry.Write", 1);
    key(kDown);
    key(kMiddleKey);
    EXPECT_EQ("Splash", screen());
    EXPECT_EQ(1, Res::getCurrLangIndex());
    EXPECT_EQ(1, G::getSavedLang());
    EXPECT_EQ("", settings());
}

TEST_F(FirstLangTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::stateFirstLang->getSubscriptions());
}
