// SPDX-License-Identifier: MIT
// Carries out what a key means (a KeyAction) in the window.
#pragma once

#include "KeyRules.h"
#include "KeyWalk.h"

class SdlDoors;
class SdlStrip;
class SdlWindow;

class SdlKeyActions {
public:
    /// @param window, extraDoors, strip, walk  not owned
    SdlKeyActions(SdlWindow& window, SdlDoors& extraDoors, SdlStrip& strip, KeyWalk& walk);

    /// @param doors  null: the program has ended
    /// @returns true if a callback was delivered
    bool perform(const KeyAction& action, HostListener& listener, HostDoors* doors);

private:
    bool onStrip(const KeyAction& action);

    SdlWindow& window;
    SdlDoors& extraDoors;
    SdlStrip& strip;
    KeyWalk& walk;
};
