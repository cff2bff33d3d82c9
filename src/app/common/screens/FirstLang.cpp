#include "FirstLang.h"

#include "G.h"
#include "Menu.h"
#include "Murmelo.h"
#include "Orm.h"
#include "PaStretcher.h"
#include "Quit.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

void FirstLang::onEnter() {
    Menu::init(Str::str_LangNameIds);
    Menu::setBgCol(Murmelo::kFirstRunArgb);
    SkBar::setStr(Res::Null, Str::str_SK_SELECT, Str::str_SK_QUIT);
    SkBar::paint(true);
    Menu::setFocusedIndex(0);
    Menu::paint();
    Orm::flush();
}

void FirstLang::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    const int32_t focusedBefore = Menu::getFocusedStrId();
    const int32_t chosen = Menu::update(event);
    if (Menu::getFocusedIndex() != Res::getCurrLangIndex()) {
        Res::setCurrLangIndex(Menu::getFocusedIndex());
        SkBar::paint(true);
        Orm::flush(G::psSkBg);
    } else if (softKey == Str::str_SK_QUIT) {
        Quit::now();
    } else if (softKey == Str::str_SK_SELECT || (chosen == focusedBefore && chosen != Res::Null)) {
        G::saveCurrentLang();
        Murmelo::setBkgColor(Murmelo::kLaterRunArgb);
        State::setState(G::stateSplash, true, true);
    }
}
