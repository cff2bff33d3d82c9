// SPDX-License-Identifier: MIT
// Presses a key of a program in another process without pressing it too often.
#pragma once

#include <cstdint>
#include <utility>

/// Presses a key until it has an effect, each time only when the screen does not change: while the
/// screen still reacts to the key before, another one would be too many. At most ten times.
/// @param picture   returns the present picture of the screen
/// @param press     presses the key
/// @param happened  returns true after the effect
template <class Picture, class Press, class Happened>
void pressUntil(const Picture& picture, const Press& press, const Happened& happened) {
    for (int32_t presses = 0; presses < 10 && !happened(); presses++) {
        auto last = picture();
        for (int32_t same = 1; same < 4 && !happened();) {
            auto next = picture();
            same = next == last ? same + 1 : 1;
            last = std::move(next);
        }
        if (!happened()) {
            press();
        }
    }
}
