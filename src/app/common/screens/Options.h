// SPDX-License-Identifier: MIT
// The main menu; the help text and the language list are modes of the same screen.
#pragma once

#include "Screen.h"

class Options : public Screen {
public:
    static constexpr int32_t kMenu = 1;
    static constexpr int32_t kHelp = 2;
    static constexpr int32_t kLanguage = 3;

    Options();

    void onEnter() override;

    void onEvent(Event* event) override;

    /// False while the help text or the language list is shown instead of the menu.
    bool isMenuShown() const { return mode == kMenu; }

private:
    void showOptions();
    void showHelp();
    void showLanguage();
    void onMenuEvent(int32_t softKey, Event* event);
    void onLanguageEvent(int32_t softKey, Event* event);

    int32_t mode;
    int32_t lastFocused;  // string id of the entry that the focus returns to
};
