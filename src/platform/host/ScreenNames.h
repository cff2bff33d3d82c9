// SPDX-License-Identifier: MIT
// The names of the program's screens of which a host makes a difference; HostDoors::screenName()
// returns them.
#pragma once

#include <string>

struct ScreenNames {
    // Until the menu is there.
    static constexpr const char* kFirstLanguage = "FirstLang";
    static constexpr const char* kSplash = "Splash";

    /// True for these two, and before there is a screen.
    static bool isBeforeMenu(const std::string& name) {
        return name.empty() || name == kFirstLanguage || name == kSplash;
    }

    static constexpr const char* kMenu = "Options";
    static constexpr const char* kRecording = "Recording";
};
