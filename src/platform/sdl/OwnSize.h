// SPDX-License-Identifier: MIT
// The size that the user gave the window, which a maximised window gets back later.
#pragma once

#include "WindowMemory.h"

#include <cstdint>

class OwnSize {
public:
    using Size = WindowMemory::Size;

    /// A size that has lasted this long is not a part of being maximised: for that the window
    /// system may tell the new size before it tells the reason.
    static constexpr uint64_t kSettledMs = 500;

    /// The window has this size now, as far as is known not because it is maximised.
    /// @param nowMs  a clock that never goes back
    void sized(Size size, uint64_t nowMs);

    /// The window is maximised: the sizes that came just before are not its own.
    void maximised(uint64_t nowMs);

    Size size() const { return newest; }

private:
    bool isSettled(uint64_t nowMs) const { return nowMs - sinceMs >= kSettledMs; }

    Size settled;  // the size before the newest one
    Size newest;
    uint64_t sinceMs = 0;  // when the newest one was told
};
