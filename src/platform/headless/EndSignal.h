// SPDX-License-Identifier: MIT
// Handles the signals that ask a process to end: stores the signal's number, so that the program
// can end between two callbacks, as when the phone ends it.
#pragma once

#include <array>
#include <csignal>

/// While an object exists, a signal only stores its number. The destructor restores the earlier
/// handlers.
class EndSignal {
public:
    EndSignal();
    EndSignal(const EndSignal&) = delete;
    EndSignal& operator=(const EndSignal&) = delete;
    ~EndSignal();

    /// The first signal that has come; 0 if none has.
    static int received();

private:
    static constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

    std::array<struct sigaction, kSignals.size()> before{};
};
