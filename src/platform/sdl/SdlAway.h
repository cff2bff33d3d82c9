// SPDX-License-Identifier: MIT
// Knows if the program is away (its window is hidden, or the program is suspended), and tells the
// listener.
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

    /// Looks at an event of SDL's, which may mean that the program is away, or back.
    void handle(const SDL_Event& event, int64_t nowMs);

    /// The user suspends the program: deliver() then tells it that it is away, and standStill()
    /// suspends it.
    void stop() { set(kStopped, true); }

    /// Suspends the process if stop() was called and the program was told; returns when the process
    /// is continued.
    void standStill();

    /// Tells the program if it is away or back since the last call. @returns true if a callback was
    /// delivered
    bool deliver(HostListener& listener, int64_t nowMs);

    /// When to call deliver() although no event has come; DueTime::kNever if not at all.
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
