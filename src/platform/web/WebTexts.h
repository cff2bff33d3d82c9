// What the screen says in words, as JSON for the page.
#pragma once

#include "ScreenTexts.h"

#include <string>

class WebTexts {
public:
    /// The JSON of what a screen says, or null if it says what it said at the last call: then none
    /// is made. Progress counts in eighths. It holds until the next call.
    const char* ifNew(ScreenTexts texts);

    /// An object with the fields of ScreenTexts by their names; a place is [x, y, w, h], progress
    /// is `progressPercent`, -1 if there is none.
    static std::string toJson(const ScreenTexts& texts);

    /// A JSON string, quotes included. @param utf8  well-formed
    static std::string quoted(const std::string& utf8);

private:
    ScreenTexts told;
    std::string json;  // empty: nothing was told yet
};
