// SPDX-License-Identifier: MIT
// Carries out what a key means (a KeyDeed) in the window.
#pragma once

#include "KeyRules.h"
#include "KeyWalk.h"

class SdlDoors;
class SdlStrip;
class SdlWindow;

class SdlDeeds {
public:
    /// @param window, extraDoors, strip, walk  not owned
    SdlDeeds(SdlWindow& window, SdlDoors& extraDoors, SdlStrip& strip, KeyWalk& walk);

    /// @param doors  null: the program has ended
    /// @returns true if a callback was delivered
    bool perform(const KeyDeed& deed, HostListener& listener, HostDoors* doors);

private:
    bool onStrip(const KeyDeed& deed);

    SdlWindow& window;
    SdlDoors& extraDoors;
    SdlStrip& strip;
    KeyWalk& walk;
};
