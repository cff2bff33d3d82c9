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
    /// @param onStart  another start wants the window to be seen, and this sound file to be opened
    ///                 (a full path; empty: none). Called on a thread of the socket's.
    explicit StartSocket(std::function<void(const std::string& file)> onStart);
    StartSocket(const StartSocket&) = delete;
    StartSocket& operator=(const StartSocket&) = delete;

    /// Takes the socket away.
    ~StartSocket();

    /// Listens from now on. Only while the home's lock is held: a socket that is there already is
    /// left over. Without a runtime folder nothing happens.
    void open(const std::string& home);

    /// Asks the program that runs in that home to show its window, and hands over a file.
    /// @param file  empty: none
    /// @returns false if no such program has taken it
    static bool handOver(const std::string& home, const std::string& file);

    /// The socket's path; empty if there is no runtime folder, or its name is too long for a
    /// socket.
    static std::string pathFor(const std::string& home);

private:
    void listen();
    void serve(int client);

    std::function<void(const std::string& file)> onStart;
    std::string path;  // empty: there is none
    int server = -1;
    int endReader = -1;
    int endWriter = -1;
    std::thread thread;
};
