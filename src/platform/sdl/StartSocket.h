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
    /// front, and this sound file opened (a full path; empty: none; kLastTake: the last take).
    /// Returns false if this program does not do that, because it is ending; the other start then
    /// goes on by itself
    explicit StartSocket(std::function<bool(const std::string& file)> onStart);
    StartSocket(const StartSocket&) = delete;
    StartSocket& operator=(const StartSocket&) = delete;

    ~StartSocket();

    /// Begins to listen. Call it only while the home's lock is held: then a socket that exists
    /// already is left from a program that has ended, and is removed. Without a runtime folder it
    /// does nothing.
    void open(const std::string& home);

    /// Stops listening and removes the socket's file. onStart is not called any more; a call that
    /// is under way must return first.
    void close();

    /// Sent in place of a file's path to ask for the last take; no absolute path equals it.
    static constexpr const char* kLastTake = "last";

    /// Asks the program that runs in that home to show its window, and hands over a file.
    /// @param file  empty: none; kLastTake: the last take (a file of that name needs its folder)
    /// @returns true if that program has taken it
    static bool handOver(const std::string& home, const std::string& file);

    /// The socket's path; empty if there is no runtime folder, or its name is too long for a
    /// socket.
    static std::string pathFor(const std::string& home);

private:
    void listen();
    void serve(int client);

    std::function<bool(const std::string& file)> onStart;
    std::string path;  // of the socket's file; empty: there is none
    int server = -1;
    int endReader = -1;
    int endWriter = -1;
    std::thread thread;
};
