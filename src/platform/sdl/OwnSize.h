// SPDX-License-Identifier: MIT
// The size that the user gave the window, which a maximised window gets back later.
#pragma once

#include "WindowMemory.h"

#include <cstdint>

class OwnSize {
public:
    using Size = WindowMemory::Size;

    /// A size that has lasted this long was not caused by maximising. The window system may report
    /// the larger size shortly before it reports that the window is maximised.
    static constexpr uint64_t kSettledMs = 500;

    /// The window has this size now. Call it only while the window is not known to be maximised.
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
