// SPDX-License-Identifier: MIT
// Finds what to read aloud when the picture changes, for people who do not see it.
#pragma once

#include "ScreenTexts.h"

#include <string>

class SpokenScreen {
public:
    /// The text to read aloud since the last call, in the program's language; empty: nothing is
    /// new. A new screen is read as a whole, for a moved focus only the entry's text. The progress
    /// of work is not read.
    /// @param message  of the strip; empty: none
    std::string change(const ScreenTexts& texts, const std::string& message);

private:
    std::string lastScreen;
    std::string lastFocus;
    std::string lastMessage;
};
