// SPDX-License-Identifier: MIT
// The texts of the screen as JSON for the page.
#pragma once

#include "ScreenTexts.h"
#include "StripModel.h"

#include <string>

class WebTexts {
public:
    /// The JSON of the screen's texts, with a field `strip`; null if neither has changed since the
    /// last call. Progress is rounded down to eighths. Valid until the next call.
    /// @param strip  the result of stripJson()
    const char* ifNew(ScreenTexts texts, const std::string& strip);

    /// An object with the fields of ScreenTexts by their names; a place is [x, y, w, h], progress
    /// is `progressPercent`, -1 if there is none.
    static std::string toJson(const ScreenTexts& texts);

    /// An object with the strip's texts: `line`, `isTelling`, the text of its `sheet` (empty: there
    /// is none), and its `buttons`. Places are in pixels of the canvas; the strip lies above it, at
    /// negative y.
    static std::string stripJson(const StripModel& model);

    /// A JSON string, quotes included. @param utf8  well-formed
    static std::string quoted(const std::string& utf8);

private:
    ScreenTexts told;
    std::string toldStrip;
    std::string json;  // result of the last call; empty: none yet
};
