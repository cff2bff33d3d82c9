// SPDX-License-Identifier: MIT
// The keys of SDL's keyboard as the rules know them.
#pragma once

#include "KeyRules.h"

union SDL_Event;

class SdlKeys {
public:
    /// @returns false if the event is no key that was pressed just now
    static bool read(const SDL_Event& event, KeyPress& press);
};
