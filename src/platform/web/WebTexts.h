// What the screen says in words, as JSON for the page.
#pragma once

#include "ScreenTexts.h"

#include <string>

class WebTexts {
public:
    /// An object with the fields of ScreenTexts by their names; a place is [x, y, w, h].
    static std::string toJson(const ScreenTexts& texts);

    /// A JSON string, quotes included. @param utf8  well-formed
    static std::string quoted(const std::string& utf8);
};
