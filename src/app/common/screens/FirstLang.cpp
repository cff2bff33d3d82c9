// SPDX-License-Identifier: MIT
#include "FirstLang.h"

#include "G.h"
#include "LanguageMenu.h"
#include "Menu.h"
#include "Murmelo.h"
#include "Quit.h"
#include "SkBar.h"
#include "Str.h"

void FirstLang::onEnter() {
    LanguageMenu::init(0, Str::str_SK_QUIT);
    Menu::setBgCol(Murmelo::kFirstRunArgb);
    LanguageMenu::paint();
}

void FirstLang::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    switch (LanguageMenu::update(event, softKey, Str::str_SK_QUIT)) {
    case LanguageMenu::Outcome::kLeft:
        Quit::now();
        break;
    case LanguageMenu::Outcome::kChosen:
        Murmelo::setBkgColor(Murmelo::kLaterRunArgb);
        State::setState(G::stateSplash, true, true);
        break;
    default:
        break;
    }
}
