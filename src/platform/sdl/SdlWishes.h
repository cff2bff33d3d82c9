// SPDX-License-Identifier: MIT
// Fulfils the wishes of the strip that need this machine: files, the last take, the choice of a
// microphone.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class SdlDoors;
class SdlStrip;

class SdlWishes {
public:
    struct Microphones {
        std::function<void()> ask;                         // for the names; show() gets them later
        std::function<std::string()> chosen;               // empty: the system's default
        std::function<void(const std::string& name)> use;  // empty: the system's default
        std::function<bool()> isFixed;  // true: no other can be chosen; it has told the user why
    };

    /// @param strip, files  not owned
    SdlWishes(SdlStrip& strip, SdlDoors& files, Microphones microphones);

    /// Shows the names that were asked for. The chosen microphone is listed although it is not
    /// among them, but cannot be chosen.
    void show(std::vector<std::string> names);

private:
    void list();
    void showMicrophones();
    void useMicrophone(int32_t index);

    SdlStrip& strip;
    SdlDoors& files;
    Microphones microphones;
    std::vector<std::string> listed;
    bool isListed = false;  // the names have come once
};
