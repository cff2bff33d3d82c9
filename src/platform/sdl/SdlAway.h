// SPDX-License-Identifier: MIT
// Whether the program is away: its window hidden, or itself suspended.
#pragma once

#include "DueTime.h"
#include "Host.h"
#include "SdlWindow.h"

#include <cstdint>

union SDL_Event;

class SdlAway {
public:
    /// @param window  not owned
    explicit SdlAway(const SdlWindow& window)
        : window(window) {}

    /// An event of SDL's that can mean that the program is away, or back.
    void handle(const SDL_Event& event, int64_t nowMs);

    /// The user suspends the program: it is told that it is away first.
    void stop() { set(kStopped, true); }

    /// Suspends the program if it was told so, and returns when it is let go on.
    void standStill();

    /// Tells the program if it is away now, or back. @returns whether a callback was delivered
    bool deliver(HostListener& listener, int64_t nowMs);

    /// When deliver() has something to find out.
    int64_t dueMs() const { return hiddenCheckMs; }

private:
    /// The program is in the background while there is any reason.
    enum Reason : uint32_t { kHidden = 1, kStopped = 2, kBySystem = 4 };

    void set(Reason reason, bool away);

    const SdlWindow& window;
    uint32_t reasons = 0;
    bool told = false;
    int64_t hiddenCheckMs = DueTime::kNever;  // when to find out why the window vanished
};
