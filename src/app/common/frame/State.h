// SPDX-License-Identifier: MIT
// A screen: a listener that is registered only while it is the current one. Screens are changed
// only here.
#pragma once

#include "Listener.h"

class State : public Listener {
public:
    virtual void onEnter() = 0;
    virtual void onExit() = 0;

    /// Leaves the current screen, if any, and enters the next.
    /// @param next         not owned, never null; the current screen itself may be left and entered
    /// again
    /// @param dropKeys     drops key presses and releases that were meant for the old screen
    /// @param dropUpdates  stops the old screen's animation
    static void setState(State* next, bool dropKeys, bool dropUpdates);

    /// Drops the key presses and releases that are still pending.
    static void dropKeyEvents();

    static void static_ctor() { currState = nullptr; }

    static void static_dtor() { currState = nullptr; }

    static State* currState;  // null until the first screen is entered
};
