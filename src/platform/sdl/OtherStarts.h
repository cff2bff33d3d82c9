// SPDX-License-Identifier: MIT
// Serves later starts of the program in the same home: puts this program's window in front, and
// makes the file that they were given its take.
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

    /// Listens from now on, for this home.
    void open(const std::string& home) { socket.open(home); }

    /// Does what other starts have asked for since the last call. On the event thread.
    void deliver(SdlWindow& window, SdlDoors& doors);

private:
    void add(const std::string& file);

    std::function<void()> wake;
    std::mutex mutex;  // protects the two fields that follow
    bool isAsked = false;
    std::vector<std::string> files;  // full paths

    StartSocket socket{[this](const std::string& file) { add(file); }};
};
