// SPDX-License-Identifier: MIT
// What is to be read aloud when the picture changes: for people who do not see it.
#pragma once

#include "ScreenTexts.h"

#include <string>

class SpokenScreen {
public:
    /// What is new, in the program's language; empty: nothing. A new screen is read whole, a moved
    /// focus is the entry's text alone. How far a work has come is not told.
    /// @param message  of the strip; empty: none
    std::string change(const ScreenTexts& texts, const std::string& message);

private:
    std::string lastScreen;
    std::string lastFocus;
    std::string lastMessage;
};
