// SPDX-License-Identifier: MIT
// The texts of the screen as JSON for the page.
#pragma once

#include "ScreenTexts.h"
#include "StripModel.h"

#include <string>

class WebTexts {
public:
    /// The JSON of what a screen says, with a field `strip`, or null if both say what they said at
    /// the last call. Progress counts in eighths. It holds until the next call.
    /// @param strip  of stripJson()
    const char* ifNew(ScreenTexts texts, const std::string& strip);

    /// An object with the fields of ScreenTexts by their names; a place is [x, y, w, h], progress
    /// is `progressPercent`, -1 if there is none.
    static std::string toJson(const ScreenTexts& texts);

    /// An object with what the strip says: `line`, `isTelling`, the text of its `sheet` (empty:
    /// there is none), and its `buttons`, with places in pixels of the canvas: the strip is above
    /// it.
    static std::string stripJson(const StripModel& model);

    /// A JSON string, quotes included. @param utf8  well-formed
    static std::string quoted(const std::string& utf8);

private:
    ScreenTexts told;
    std::string toldStrip;
    std::string json;  // empty: nothing was told yet
};
