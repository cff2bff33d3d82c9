// SPDX-License-Identifier: MIT
// Names of screens that a host treats specially, as HostDoors::screenName() returns them.
#pragma once

#include <string>

struct ScreenNames {
    // Before the menu.
    static constexpr const char* kFirstLanguage = "FirstLang";
    static constexpr const char* kSplash = "Splash";

    /// True for these two screens, and before there is any screen.
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
