// SPDX-License-Identifier: MIT
#include "LanguageMenu.h"

#include "G.h"
#include "Menu.h"
#include "Orm.h"
#include "PaStretcher.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

void LanguageMenu::init(int32_t focused, int32_t leaveKey) {
    Menu::init(Str::str_LangNameIds);
    Menu::setFocusedIndex(focused);
    SkBar::setStr(Res::Null, Str::str_SK_SELECT, leaveKey);
}

void LanguageMenu::paint() {
    SkBar::paint(true);
    Menu::paint();
    Orm::flush();
}

LanguageMenu::Outcome LanguageMenu::update(Event* event, int32_t softKey, int32_t leaveKey) {
    const int32_t focusedBefore = Menu::getFocusedStrId();
    const int32_t chosen = Menu::update(event);
    if (Menu::getFocusedIndex() != Res::getCurrLangIndex()) {
        Res::setCurrLangIndex(Menu::getFocusedIndex());
        SkBar::paint(true);
        Orm::flush(G::psSkBg);
        return Outcome::kGoesOn;
    }
    if (softKey == leaveKey) {
        return Outcome::kLeft;
    }
    if (softKey == Str::str_SK_SELECT || (chosen == focusedBefore && chosen != Res::Null)) {
        G::saveCurrentLang();
        return Outcome::kChosen;
    }
    return Outcome::kGoesOn;
}
