// SPDX-License-Identifier: MIT
// The choice of the language, as the first start and the main menu offer it. All texts are shown in
// the language that has the focus.
#pragma once

#include <cstdint>

class Event;

class LanguageMenu {
public:
    enum class Outcome { kGoesOn, kLeft, kChosen };

    /// Fills the menu and the soft keys.
    /// @param focused   index of the language that has the focus
    /// @param leaveKey  label of the soft key that leaves without a choice
    static void init(int32_t focused, int32_t leaveKey);

    /// Soft keys and menu.
    static void paint();

    /// Handles an event. A chosen language is saved. If the user leaves without a choice, the
    /// focused language stays the current one.
    /// @param softKey   label of the soft key that the event chose
    /// @param leaveKey  as init()
    static Outcome update(Event* event, int32_t softKey, int32_t leaveKey);
};
