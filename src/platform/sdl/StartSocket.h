// SPDX-License-Identifier: MIT
// A second start of the program finds the first one here, and hands over the file that it was
// given.
//
// One socket for each home, in the user's runtime folder. Both sides make sure that the other one
// is a program of the same user.
#pragma once

#include "Problem.h"

#include <functional>
#include <string>
#include <thread>

class StartSocket {
public:
    /// @param onStart  called for each other start, on the socket's thread: it wants the window in
    /// front, and this sound file opened (a full path; empty: none)
    explicit StartSocket(std::function<void(const std::string& file)> onStart);
    StartSocket(const StartSocket&) = delete;
    StartSocket& operator=(const StartSocket&) = delete;

    /// Stops listening and removes the socket's file.
    ~StartSocket();

    /// Begins to listen. Call it only while the home's lock is held: then a socket that exists
    /// already is left from a program that has ended, and is removed. Without a runtime folder it
    /// does nothing.
    void open(const std::string& home);

    /// Asks the program that runs in that home to show its window, and hands over a file.
    /// @param file  empty: none
    /// @returns true if that program has taken it
    static bool handOver(const std::string& home, const std::string& file);

    /// The socket's path; empty if there is no runtime folder, or its name is too long for a
    /// socket.
    static std::string pathFor(const std::string& home);

private:
    void listen();
    void serve(int client);

    std::function<void(const std::string& file)> onStart;
    std::string path;  // of the socket's file; empty: there is none
    int server = -1;
    int endReader = -1;
    int endWriter = -1;
    std::thread thread;
};
