// SPDX-License-Identifier: MIT
#include "Strip.h"

using Touch = HostListener::Touch;

namespace {

/// Rounded down, for negative coordinates too.
int32_t toProgramPx(int32_t displayPx) {
    return displayPx >> 1;
}

static_assert(HostFrame::kCanvasFactor == 2);

}  // namespace

void Strip::setDoors(HostDoors* doors) {
    isShown = doors != nullptr;
    feeding.setDoors(doors);
    fulfilling.setDoors(doors);
    if (doors != nullptr) {
        frame.begin();
    } else {
        frame.end();
    }
}

HostFrame* Strip::frameOver(HostFrame* display) {
    frame.setDisplay(display);
    return display != nullptr ? &frame : nullptr;
}

bool Strip::touch(Touch touch, int32_t x, int32_t y, int64_t nowMs) {
    const int32_t px = toProgramPx(x);
    const int32_t py = toProgramPx(y);
    if (touch == Touch::kPress) {
        touched = isShown && row.covers(px, py);
        pressed = row.buttonAt(px, py);
        isTakenAway = false;
    }
    const bool isOurs = touched;
    if (touch == Touch::kRelease && touched) {
        touched = false;
        feeding.look(nowMs);
        if (!isTakenAway && row.buttonAt(px, py).isSameAs(pressed)) {
            fulfilling.fulfil(row.tap(px, py), nowMs);
        }
    }
    return isOurs;
}

void Strip::point(int32_t x, int32_t y) {
    row.point(toProgramPx(x), toProgramPx(y));
}

bool Strip::key(StripKey key, int64_t nowMs) {
    if (!isShown) {
        return false;
    }
    feeding.look(nowMs);
    const StripWish wish = row.key(key);
    fulfilling.fulfil(wish, nowMs);
    return static_cast<bool>(wish);
}

bool Strip::navigate(HostKey key, int64_t nowMs) {
    if (!coversPicture()) {
        return false;
    }
    feeding.look(nowMs);
    fulfilling.fulfil(row.navigate(key), nowMs);
    return true;
}
