// SPDX-License-Identifier: MIT
// Turns SDL's keyboard events into what KeyRules reads.
#pragma once

#include "KeyRules.h"

union SDL_Event;

class SdlKeys {
public:
    /// @returns false if the event is not a key going down (a repetition is none), or the Windows
    /// key is held
    static bool read(const SDL_Event& event, KeyPress& press);
};
