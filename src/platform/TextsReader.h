// Reads from the screen's furniture what the picture says in words.
#pragma once

#include "ScreenTexts.h"

#include <cstdint>
#include <string>

class TextsReader {
public:
    /// Of the picture as it was painted last; empty before the first screen and after the end.
    static ScreenTexts read();

    /// The name of that effect, as UTF-8; empty outside the catalogue.
    static std::string effectName(int32_t effect);
};
