// SPDX-License-Identifier: MIT
// The main menu, its help and its list of languages lead where their entries say.
#include "AppImage.h"
#include "ArrFunc.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "G.h"
#include "GameInterface.h"
#include "Header.h"
#include "Main.h"
#include "Menu.h"
#include "Message.h"
#include "Options.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Res.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "Str.h"

#include <algorithm>

namespace {

constexpr int32_t kUp = -1;
constexpr int32_t kDown = -2;
constexpr int32_t kMiddleKey = -5;
constexpr int32_t kRightKey = -7;

class OptionsTest : public ScreensTest {
protected:
    OptionsTest() { makeSoundFolder(); }

    static void touchRow(int32_t index) {
        touch(120, Menu::y + 10 + index * (Menu::rh + 12) + (Menu::rh + 12) / 2);
    }

    static Names entries() {
        Names names;
        for (int32_t i = 0; i < length(Menu::strIds); i++) {
            names.push_back(text(Menu::strIds[i]));
        }
        return names;
    }

    void enterLanguages() {
        enter(G::stateOptions);
        touchRow(2);
    }

    static bool inMenu() { return static_cast<Options*>(G::stateOptions)->isMenuShown(); }
};

}  // namespace

TEST_F(OptionsTest, theMenuLeavesEveryFaceFree) {
    constexpr int32_t kLastOfFaces = 169;  // as drawn: tests/art/faces.py
    for (int32_t effect = 0; effect < 8; effect++) {
        G::setCurrFx(effect);
        enter(G::stateOptions);
        const Pixels shown = picture(0, 0, 240, kLastOfFaces + 1);
        Main::paintBgAndFx();
        EXPECT_EQ(picture(0, 0, 240, kLastOfFaces + 1), shown) << effect;
    }
}

TEST_F(OptionsTest, offersThreeEntriesAndTheEndWithoutATake) {
    enter(G::stateOptions);
    EXPECT_EQ((Names{"Record", "Help", "Language"}), entries());
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
    EXPECT_EQ(0, Menu::getFocusedIndex());
    EXPECT_FALSE(Header::arrows);
    EXPECT_FALSE(Header::fxName);
    EXPECT_TRUE(inMenu());
    EXPECT_TRUE(pending().empty());
}

TEST_F(OptionsTest, offersTheWayBackWithATake) {
    putTake({1, 2});
    enter(G::stateOptions);
    EXPECT_EQ((Names{"-", "Select", "Back"}), labels());
    key(kRightKey);
    EXPECT_EQ("Play", screen());
    EXPECT_TRUE(GameInterface::Active);
}

TEST_F(OptionsTest, standsOverTheCurrentCreature) {
    G::setCurrFx(4);
    enter(G::stateOptions);
    const Pixels shown = picture();
    Main::paintBgAndFx();
    const Pixels withCreature = picture();
    Main::paintBg();
    const Pixels background = picture();
    int32_t creaturePixels = 0;
    for (int32_t y = 0; y < SkBar::y1; y++) {
        for (int32_t x = 0; x < 240; x++) {
            const auto at = static_cast<size_t>(y) * 240 + static_cast<size_t>(x);
            if (!Bounds::contains(G::psWndBg, x, y)) {
                ASSERT_EQ(withCreature[at], shown[at]) << x << " " << y;
                creaturePixels += withCreature[at] != background[at] ? 1 : 0;
            }
        }
    }
    EXPECT_GT(creaturePixels, 500);  // its head looks over the menu's window
}

TEST_F(OptionsTest, theMenuHasAnEmptyHeaderAlsoAfterTheChoiceOfTheEffect) {
    enter(G::statePlay);
    ASSERT_TRUE(Header::arrows && Header::fxName);
    enter(G::stateOptions);
    const Pixels shown = picture(0, 0, 240, Header::bounds->h);
    Main::paintBgAndFx();
    EXPECT_TRUE(shown == picture(0, 0, 240, Header::bounds->h));
}

TEST_F(OptionsTest, quittingEndsTheProgram) {
    enter(G::stateOptions);
    touch(kRight);
    EXPECT_FALSE(GameInterface::Active);
    EXPECT_TRUE(Orm::isDisposed);
}

TEST_F(OptionsTest, recordIsEnteredByTouchAndByKey) {
    enter(G::stateOptions);
    touchRow(0);
    EXPECT_EQ("Record", screen());
    touch(kRight);
    ASSERT_EQ("Options", screen());
    key(kMiddleKey);
    EXPECT_EQ("Record", screen());
}

TEST_F(OptionsTest, theFocusReturnsToTheEntryThatWasLeft) {
    enter(G::stateOptions);
    key(kUp);
    EXPECT_EQ(2, Menu::getFocusedIndex());
    touchRow(1);
    EXPECT_FALSE(inMenu());
    touch(kMiddle);
    EXPECT_TRUE(inMenu());
    EXPECT_EQ(1, Menu::getFocusedIndex());
    enter(G::stateOptions);
    EXPECT_EQ(1, Menu::getFocusedIndex());
}

TEST_F(OptionsTest, anEntrySaveEntersTheSaveScreen) {
    folders.write(kResult, "result");
    G::setLastPlayedFx(G::getCurrFx());
    enter(G::stateOptions);
    int32_t* ids = newArray<int32_t>(1);
    ids[0] = Str::str_MI_SAVE;
    Menu::init(ids);
    deleteArrFunc(ids);
    key(kMiddleKey);
    EXPECT_EQ("Save", screen());
}

TEST_F(OptionsTest, helpShowsItsTextInTheSmallFontUntilOk) {
    enter(G::stateOptions);
    touchRow(1);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
    EXPECT_EQ(Str::str_HELP_TXT, Message::paTxt->getText());
    EXPECT_EQ(G::fntSmall, Message::paTxt->getFont());
    const Pixels help = picture();
    key(kUp);
    key(OrmCanvas::kKeyLeft);
    key(kRightKey);
    touch(120, 150);
    touch(kLeft);
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
    EXPECT_EQ(help, picture());
    key(kMiddleKey);
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
    EXPECT_EQ((Names{"Record", "Help", "Language"}), entries());
}

TEST_F(OptionsTest, theLanguageListFocusesTheCurrentLanguage) {
    Res::setCurrLangIndex(3);
    enterLanguages();
    EXPECT_EQ((Names{"English", "Deutsch", "Español", "Français", "Italiano"}), entries());
    EXPECT_EQ(3, Menu::getFocusedIndex());
    EXPECT_EQ((Names{"-", "Sélect.", "Retour"}), labels());
    EXPECT_FALSE(inMenu());
}

TEST_F(OptionsTest, movingTheFocusChangesAllTextsAtOnceAndSavesNothing) {
    enterLanguages();
    const Pixels before = picture(0, 288, 240, 32);
    key(kDown);
    EXPECT_EQ(1, Res::getCurrLangIndex());
    EXPECT_EQ((Names{"-", "Wählen", "Zurück"}), labels());
    EXPECT_NE(before, picture(0, 288, 240, 32));
    EXPECT_EQ(-1, G::getSavedLang());
    EXPECT_FALSE(inMenu());
}

TEST_F(OptionsTest, backFromTheLanguagesRestoresTheSavedOne) {
    Res::setCurrLangIndex(4);
    G::saveCurrentLang();
    enterLanguages();
    key(kUp);
    EXPECT_EQ(3, Res::getCurrLangIndex());
    touch(kRight);
    EXPECT_EQ(4, Res::getCurrLangIndex());
    EXPECT_TRUE(inMenu());
    EXPECT_EQ("Esci", labels()[2]);
}

TEST_F(OptionsTest, backFromTheLanguagesIsEnglishIfNoneWasSaved) {
    enterLanguages();
    key(kDown);
    key(kRightKey);
    EXPECT_EQ(0, Res::getCurrLangIndex());
    EXPECT_TRUE(inMenu());
}

TEST_F(OptionsTest, selectSavesTheLanguage) {
    enterLanguages();
    key(kDown);
    touch(kMiddle);
    EXPECT_EQ(1, G::getSavedLang());
    EXPECT_TRUE(inMenu());
    EXPECT_EQ((Names{"Aufnahme", "Hilfe", "Sprache"}), entries());
    EXPECT_EQ(2, Menu::getFocusedIndex());
}

TEST_F(OptionsTest, aTouchOnAnotherLanguageFocusesItAndASecondOneSavesIt) {
    enterLanguages();
    touchRow(2);
    EXPECT_FALSE(inMenu());
    EXPECT_EQ(2, Res::getCurrLangIndex());
    EXPECT_EQ(-1, G::getSavedLang());
    touchRow(2);
    EXPECT_TRUE(inMenu());
    EXPECT_EQ(2, G::getSavedLang());
}

TEST_F(OptionsTest, aLaterChoiceReplacesTheEarlierOne) {
    for (const int32_t lang : {3, 1}) {
        enterLanguages();
        if (Menu::getFocusedIndex() != lang) {
            touchRow(lang);
        }
        touchRow(lang);
        EXPECT_EQ(lang, G::getSavedLang());
    }
}

TEST_F(OptionsTest, enteringAgainShowsTheMenu) {
    enterLanguages();
    enter(G::stateOptions);
    EXPECT_TRUE(inMenu());
}

TEST_F(OptionsTest, otherEventsChangeNothing) {
    enter(G::stateOptions);
    const Pixels before = picture();
    key(OrmCanvas::kKeyLeft);
    key(OrmCanvas::kKeyRight);
    key(OrmCanvas::kKeyLeftSoft);
    touch(kLeft);
    deliver(Orm::EV_T_UPDATE);
    deliver(Orm::EV_T_SYS_PAUSE);
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(GameInterface::Active);
    EXPECT_EQ(before, picture());
}

TEST_F(OptionsTest, aPhoneThatIsNotSilentIsNotAsked) {
    EXPECT_FALSE(OrmCanvas::safeToShowIsSilentPopup);
    enter(G::stateOptions);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(OrmCanvas::silentPopupShown);
    EXPECT_TRUE(OrmCanvas::safeToShowIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
}

TEST_F(OptionsTest, aSilentPhoneIsAskedAboutOnceAndTheProgramWaits) {
    host.silent = true;
    enter(G::stateOptions);
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(OrmCanvas::silentPopupShown);
    EXPECT_TRUE(OrmCanvas::safeToShowIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
    EXPECT_EQ("Options", screen());
}

TEST_F(OptionsTest, aSettingThatCannotBeReadCountsAsNotSilent) {
    host.silent = true;
    host.failNth("SettingInfo.GetValue", 1);
    enter(G::stateOptions);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
}

TEST_F(OptionsTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::stateOptions->getSubscriptions());
}
