// SPDX-License-Identifier: MIT
// Reads texts aloud through the desktop's speech server. start() loads that server's library;
// without start() the program does not need it.
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

    /// Does not wait for the thread: one that is stuck in the server ends with the program.
    ~Speech();

    /// Loads the library, and connects to the server on a thread of its own.
    /// @param wake  wakes the event thread when takeFailure() has something; called on that thread
    /// @returns the bare reason why the library cannot be used
    Problem start(Wake wake, const char* library = kLibrary);

    bool isStarted() const { return shared != nullptr; }

    /// Stops what is being said and says this text. Does not wait. Without start() it does nothing.
    /// @param text      UTF-8
    /// @param language  a code ("de")
    void say(const std::string& text, const std::string& language);

    struct Failure {
        std::string reason;  // one of the program's own; empty: there is none
        std::string detail;  // what the library says, for a terminal; may be empty
    };

    /// Returns once why the server cannot be reached, or that it has ended. After that nothing is
    /// spoken.
    Failure takeFailure();

private:
    struct Functions;
    struct Shared;

    static void work(Shared& shared, const Functions& functions);
    static void fail(Shared& shared, Failure failure);

    std::shared_ptr<Shared> shared;  // shared with the thread; null: not started
};
