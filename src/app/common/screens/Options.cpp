// SPDX-License-Identifier: MIT
#include "Options.h"

#include "Array.h"
#include "FileOps.h"
#include "G.h"
#include "Header.h"
#include "LanguageMenu.h"
#include "Main.h"
#include "Menu.h"
#include "Message.h"
#include "Orm.h"
#include "PaStretcher.h"
#include "Quit.h"
#include "Res.h"
#include "SilentQuestion.h"
#include "SkBar.h"
#include "Str.h"

#include <algorithm>
#include <iterator>

Options::Options()
    : mode(kMenu)
    , lastFocused(Res::Null) {}

void Options::onEnter() {
    showOptions();
}

void Options::showOptions() {
    mode = kMenu;
    Header::set(false, false, false, false);
    Main::paintBgAndFx();
    Header::paint(false);
    const int32_t ids[] = {Str::str_SK_RECORD, Str::str_MI_HELP, Str::str_MI_LANGUAGE};
    const Array<int32_t> entries(newArray<int32_t>(static_cast<int32_t>(std::size(ids))));
    std::copy(std::begin(ids), std::end(ids), entries.get());
    Menu::init(entries);
    Menu::layOnRecorder();
    Menu::setFocusedStrId(lastFocused);
    const bool takeExists = FileOps::exists(G::takePath());
    SkBar::setStr(Res::Null, Str::str_SK_SELECT, takeExists ? Str::str_SK_BACK : Str::str_SK_QUIT);
    SkBar::paint(true);
    Menu::paint();
    Orm::flush();
    SilentQuestion::offer();
}

void Options::showHelp() {
    mode = kHelp;
    SkBar::setStr(Res::Null, Str::str_SK_OK, Res::Null);
    Main::paintBgAndFx();
    SkBar::paint(true);
    Message::setText(Str::str_HELP_TXT, G::fntSmall);
    Message::paint();
    Orm::flush();
}

void Options::showLanguage() {
    mode = kLanguage;
    Header::set(false, false, false, false);
    Main::paintBgAndFx();
    Header::paint(false);
    LanguageMenu::init(Res::getCurrLangIndex(), Str::str_SK_BACK);
    LanguageMenu::paint();
}

void Options::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    switch (mode) {
    case kMenu:
        onMenuEvent(softKey, event);
        break;
    case kHelp:
        if (softKey == Str::str_SK_OK) {
            showOptions();
        }
        break;
    default:
        onLanguageEvent(softKey, event);
        break;
    }
}

void Options::onMenuEvent(int32_t softKey, Event* event) {
    const int32_t chosen = Menu::update(event);
    lastFocused = Menu::getFocusedStrId();
    if (chosen == Str::str_SK_RECORD) {
        State::setState(G::stateRecord, true, true);
    } else if (chosen == Str::str_MI_SAVE) {
        State::setState(G::stateSave, true, true);
    } else if (chosen == Str::str_MI_HELP) {
        showHelp();
    } else if (chosen == Str::str_MI_LANGUAGE) {
        showLanguage();
    } else if (softKey == Str::str_SK_BACK) {
        State::setState(G::statePlay, true, true);
    } else if (softKey == Str::str_SK_QUIT) {
        Quit::now();
    }
}

void Options::onLanguageEvent(int32_t softKey, Event* event) {
    switch (LanguageMenu::update(event, softKey, Str::str_SK_BACK)) {
    case LanguageMenu::Outcome::kLeft: {
        const int32_t saved = G::getSavedLang();
        Res::setCurrLangIndex(saved != -1 ? saved : 0);
        showOptions();
        break;
    }
    case LanguageMenu::Outcome::kChosen:
        showOptions();
        break;
    default:
        break;
    }
}
