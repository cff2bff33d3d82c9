// SPDX-License-Identifier: MIT
// The phone knows one finger. Of several pointers only the one that was pressed first counts until
// it is released; the others are ignored.
#pragma once

#include "Host.h"

#include <cstdint>

class OneFinger {
public:
    enum class Pointer { kNone, kMouse, kFinger };

    /// Positions are pixels of the phone's display; one outside it presses nothing.
    /// @param id  tells pointers of one kind apart
    /// @returns here and below: true if a callback was delivered
    bool pressed(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);

    /// As pressed(), unless it is the second tap of a double tap on the soft-key bar: a job that
    /// took the phone seconds is done within a double tap, and its second half would press a key of
    /// the next screen, which the user has not seen yet.
    /// @param timeMs  of the tap, on a clock that may wrap at 2^32
    bool tapped(
        Pointer pointer, int64_t id, int32_t x, int32_t y, uint32_t timeMs, HostListener& listener);

    /// A pointer that leaves the display moves on, or is released, at its edge.
    bool moved(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);
    bool released(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener);

    /// The pointer is taken away, for the browser's own pinch for instance: it lets go where no key
    /// is, and presses nothing.
    bool cancelled(Pointer pointer, int64_t id, HostListener& listener);

    /// As cancelled(), for whichever pointer is down: its end may never be told.
    bool letGo(HostListener& listener);

    /// True if a place of the display belongs to the soft-key bar.
    static bool isOnSoftKeys(int32_t y) { return y >= HostFrame::kSoftKeysTopPx; }

private:
    Pointer down = Pointer::kNone;
    int64_t downId = 0;
    bool hasTappedBar = false;  // the last tap was on the soft-key bar
    uint32_t barTapMs = 0;
};
