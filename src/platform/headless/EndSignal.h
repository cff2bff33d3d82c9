// SPDX-License-Identifier: MIT
// Signals that ask the program to end. Their number is stored, and the program ends between two
// callbacks, as when the phone ends it.
#pragma once

#include <array>
#include <csignal>

/// While one lives, a signal only stores its number. Its end restores the handlers that were set
/// before.
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
