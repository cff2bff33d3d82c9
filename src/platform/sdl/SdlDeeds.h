// Does in the window what a key means.
#pragma once

#include "KeyRules.h"
#include "KeyWalk.h"

class SdlDoors;
class SdlWindow;

class SdlDeeds {
public:
    /// @param window, extraDoors, walk  not owned
    SdlDeeds(SdlWindow& window, SdlDoors& extraDoors, KeyWalk& walk);

    /// @param doors  null: there is nobody to take them
    /// @returns whether a callback was delivered
    bool perform(const KeyDeed& deed, HostListener& listener, HostDoors* doors);

private:
    SdlWindow& window;
    SdlDoors& extraDoors;
    KeyWalk& walk;
};
