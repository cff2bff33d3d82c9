// Signals that ask the program to end: they are heard, and heeded between two callbacks, so that it
// ends as when the phone ends it.
#pragma once

#include <array>
#include <signal.h>

/// While one lives, the signals only leave their number; what was set before holds again
/// afterwards.
class EndSignal {
public:
    EndSignal();
    EndSignal(const EndSignal&) = delete;
    EndSignal& operator=(const EndSignal&) = delete;
    ~EndSignal();

    /// The first signal that came, 0 if none did.
    static int received();

private:
    static constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

    std::array<struct sigaction, kSignals.size()> before{};
};
