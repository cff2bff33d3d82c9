// SPDX-License-Identifier: MIT
#include "OneFinger.h"

#include <algorithm>

using Touch = HostListener::Touch;

namespace {

constexpr uint32_t kDoubleTapMs = 500;

bool isOnDisplay(int32_t x, int32_t y) {
    return x >= 0 && x < HostFrame::kWidthPx && y >= 0 && y < HostFrame::kHeightPx;
}

void deliver(Touch touch, int32_t x, int32_t y, HostListener& listener) {
    listener.onTouch(touch, std::clamp(x, 0, HostFrame::kWidthPx - 1),
                     std::clamp(y, 0, HostFrame::kHeightPx - 1));
}

}  // namespace

bool OneFinger::pressed(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != Pointer::kNone || !isOnDisplay(x, y)) {
        return false;
    }
    down = pointer;
    downId = id;
    deliver(Touch::kPress, x, y, listener);
    return true;
}

bool OneFinger::tapped(
    Pointer pointer, int64_t id, int32_t x, int32_t y, uint32_t timeMs, HostListener& listener) {
    const bool onBar = isOnSoftKeys(y);
    const bool secondOfDouble = onBar && hasTappedBar && timeMs - barTapMs < kDoubleTapMs;
    if (secondOfDouble || !pressed(pointer, id, x, y, listener)) {
        return false;
    }
    hasTappedBar = onBar;
    barTapMs = timeMs;
    return true;
}

bool OneFinger::moved(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != pointer || downId != id) {
        return false;
    }
    deliver(Touch::kMove, x, y, listener);
    return true;
}

bool OneFinger::released(
    Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != pointer || downId != id) {
        return false;
    }
    down = Pointer::kNone;
    deliver(Touch::kRelease, x, y, listener);
    return true;
}

bool OneFinger::cancelled(Pointer pointer, int64_t id, HostListener& listener) {
    return released(pointer, id, 0, 0, listener);  // in the band above the canvas
}

bool OneFinger::cancelDown(HostListener& listener) {
    return down != Pointer::kNone && cancelled(down, downId, listener);
}
