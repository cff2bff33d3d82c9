// SPDX-License-Identifier: MIT
// What later starts of the program in the same home want of this one: its window in front, and
// their files as its take.
#pragma once

#include "SdlDoors.h"
#include "SdlWindow.h"
#include "StartSocket.h"

#include <functional>
#include <mutex>
#include <string>
#include <vector>

class OtherStarts {
public:
    /// @param wake  rouses the event thread; called on another thread
    explicit OtherStarts(std::function<void()> wake);

    /// From now on, for this home.
    void open(const std::string& home) { socket.open(home); }

    /// On the event thread: does what was asked for since the last call.
    void deliver(SdlWindow& window, SdlDoors& doors);

private:
    void add(const std::string& file);

    std::function<void()> wake;
    std::mutex mutex;  // of the two that follow
    bool isAsked = false;
    std::vector<std::string> files;  // full paths

    StartSocket socket{[this](const std::string& file) { add(file); }};
};
