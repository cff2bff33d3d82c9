// SPDX-License-Identifier: MIT
// Serves later starts of the program in the same home: puts this program's window in front, and
// makes the file that they were given its take.
#pragma once

#include "SdlDoors.h"
#include "SdlWindow.h"
#include "StartSocket.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>

class OtherStarts {
public:
    /// @param wake  wakes the event thread; called on another thread
    explicit OtherStarts(std::function<void()> wake);
    OtherStarts(const OtherStarts&) = delete;
    OtherStarts& operator=(const OtherStarts&) = delete;
    ~OtherStarts();

    /// Listens from now on, for this home.
    void open(const std::string& home) { socket.open(home); }

    /// Does what another start has asked for since the last call. On the event thread.
    void deliver(SdlWindow& window, SdlDoors& doors);

    /// Call it as soon as this program begins to end: a start from now on, and one that was not
    /// delivered, waits for this program's end and then begins by itself.
    void end();

private:
    bool add(const std::string& file);

    std::function<void()> wake;
    std::mutex mutex;  // protects the three fields that follow
    bool isAsked = false;
    bool isEnded = false;
    std::string asked;  // as StartSocket gives it
    std::condition_variable changed;

    StartSocket socket{[this](const std::string& file) { return add(file); }};
};
