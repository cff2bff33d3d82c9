// SPDX-License-Identifier: MIT
// Collects the texts that the picture shows, from the bar, the menu, the message and the progress
// window.
#pragma once

#include "ScreenTexts.h"

#include <cstdint>
#include <string>

class TextsReader {
public:
    /// The texts of the last painted picture; empty before the first screen and after the end.
    static ScreenTexts read();

    /// The name of an effect in the program's language, as UTF-8; empty if there is no such effect.
    static std::string effectName(int32_t effect);
};
