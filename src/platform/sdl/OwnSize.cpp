// SPDX-License-Identifier: MIT
#include "OwnSize.h"

void OwnSize::sized(Size size, uint64_t nowMs) {
    if (!settled.isKnown() || isSettled(nowMs)) {
        settled = newest.isKnown() ? newest : size;
    }
    newest = size;
    sinceMs = nowMs;
}

void OwnSize::maximised(uint64_t nowMs) {
    if (!isSettled(nowMs)) {
        newest = settled;
    }
}
