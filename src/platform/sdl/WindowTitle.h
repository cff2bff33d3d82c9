// SPDX-License-Identifier: MIT
// What the window's title says: the screen and the effect, for people who do not see the picture.
#pragma once

#include "ScreenTexts.h"

#include <string>

class WindowTitle {
public:
    /// In the program's language: "Choose an effect: Robot - Murmelo". Before the first screen it
    /// is the program's name.
    static std::string of(const ScreenTexts& texts);
};
