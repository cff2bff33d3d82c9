// SPDX-License-Identifier: MIT
// Turns several fingers and the mouse into the phone's one finger: only the pointer that was
// pressed first counts, until it is released.
#pragma once

#include "Host.h"

#include <cstdint>

class OneFinger {
public:
    enum class Pointer { kNone, kMouse, kFinger };

    /// A pointer was pressed; outside the display that has no effect. Positions are in pixels of
    /// the phone's display.
    /// @param id  tells pointers of one kind apart
    /// @returns here and below: true if a callback was delivered
    bool pressed(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);

    /// As pressed(), but ignores the second tap of a double tap on the soft-key bar. The machine
    /// finishes within a double tap what took the phone seconds; the second tap would press a key
    /// of the next screen, which the user has not seen yet.
    /// @param timeMs  of the tap, on a clock that may wrap at 2^32
    bool tapped(
        Pointer pointer, int64_t id, int32_t x, int32_t y, uint32_t timeMs, HostListener& listener);

    /// The pointer has moved, or was released. Positions outside the display count as its edge.
    bool moved(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);
    bool released(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);

    /// The system has taken the pointer away, for example for a pinch: it is released where no key
    /// is, so that nothing is pressed.
    bool cancelled(Pointer pointer, int64_t id, HostListener& listener);

    /// Cancels the pointer that is down, if any, because its release may never be reported.
    bool cancelDown(HostListener& listener);

    /// True if this row of the display belongs to the soft-key bar.
    static bool isOnSoftKeys(int32_t y) { return y >= HostFrame::kSoftKeysTopPx; }

private:
    Pointer down = Pointer::kNone;
    int64_t downId = 0;
    bool hasTappedBar = false;  // the last tap was on the soft-key bar
    uint32_t barTapMs = 0;
};
