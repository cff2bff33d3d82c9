// SPDX-License-Identifier: MIT
// Reads the texts that the picture shows from the bar, the menu, the message and the progress
// window.
#pragma once

#include "ScreenTexts.h"

#include <cstdint>
#include <string>

class TextsReader {
public:
    /// The texts of the picture painted last; empty before the first screen and after the end.
    static ScreenTexts read();

    /// The name of that effect, as UTF-8; empty outside the catalogue.
    static std::string effectName(int32_t effect);
};
