// The names of the program's screens of which a host makes a difference; HostDoors::screenName()
// returns them.
#pragma once

struct ScreenNames {
    // Until the menu is there.
    static constexpr const char* kFirstLanguage = "FirstLang";
    static constexpr const char* kSplash = "Splash";

    static constexpr const char* kMenu = "Options";
    static constexpr const char* kRecording = "Recording";
};
