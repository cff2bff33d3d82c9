// Reads from the screen's furniture what the picture says in words.
#pragma once

#include "ScreenTexts.h"

#include <string>
#include <vector>

class TextsReader {
public:
    /// Of the picture as it was painted last; empty before the first screen and after the end.
    static ScreenTexts read();

    /// Names of the effects in the program's language; empty before they exist.
    static std::vector<std::string> effectNames();
};
