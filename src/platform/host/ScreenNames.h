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
    static constexpr const char* kRecord = "Record";  // before the recording
    static constexpr const char* kRecording = "Recording";
    static constexpr const char* kProcess = "Process";
    static constexpr const char* kPlay = "Play";  // the choice of the effect
    static constexpr const char* kPlaying = "Playing";
    static constexpr const char* kLastMessage = "MessageAndQuit";
};
