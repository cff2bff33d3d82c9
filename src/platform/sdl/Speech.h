// SPDX-License-Identifier: MIT
// Reads texts aloud through the desktop's speech server. Its library is loaded by start() and not
// before.
#pragma once

#include "Problem.h"

#include <functional>
#include <memory>
#include <string>

class Speech {
public:
    static constexpr const char* kLibrary = "libspeechd.so.2";

    using Wake = std::function<void()>;

    Speech() = default;
    Speech(const Speech&) = delete;
    Speech& operator=(const Speech&) = delete;

    /// Waits for nothing: a server that is stuck keeps its thread, which ends with the program.
    ~Speech();

    /// Loads the library, and connects to the server on a thread of its own.
    /// @param wake  rouses the event thread when takeProblem() has something; called on that thread
    /// @returns what is wrong with the library
    Problem start(Wake wake, const char* library = kLibrary);

    bool isStarted() const { return shared != nullptr; }

    /// Says this in place of what is being said. Does not wait. Without start() it does nothing.
    /// @param text      UTF-8
    /// @param language  a code ("de")
    void say(const std::string& text, const std::string& language);

    /// Why the server cannot be reached, once; empty: no reason.
    std::string takeProblem();

private:
    struct Functions;
    struct Shared;

    static void work(Shared& shared, const Functions& functions);

    std::shared_ptr<Shared> shared;  // with the thread; null: not started
};
