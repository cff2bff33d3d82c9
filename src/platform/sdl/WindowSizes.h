// SPDX-License-Identifier: MIT
// Works out how large the window is at its start, and how much larger or smaller one step makes it.
#pragma once

#include "WindowMemory.h"

#include <cstdint>
#include <string>

class WindowSizes {
public:
    using Size = WindowMemory::Size;

    static constexpr int32_t kMinWidth = 120;
    static constexpr int32_t kMinHeight = 200;

    /// The factor by which the desktop enlarges everything, 1 to 8; 0 if the desktop sets none.
    /// @param isScaled  true: the window system scales by itself, as Wayland does; then the factor
    /// is 1
    /// @param xftDpi    the X resource Xft.dpi; empty: none
    /// @param gdkScale  the variable GDK_SCALE; empty: none
    static double
    desktopScale(bool isScaled, const std::string& xftDpi, const std::string& gdkScale);

    /// The phone's size times scale; if the screen has no room for that, the largest size of the
    /// same proportions.
    /// @param room  the part of the screen that windows may use; 0 x 0: unknown
    static Size usual(double scale, Size room);

    /// One step larger or smaller, with strip and picture arranged as they are now. A step makes
    /// each of the program's pixels half a pixel larger or smaller.
    /// @param room  as above; if the next size does not fit into it, returns now
    static Size larger(Size now, Size room);
    static Size smaller(Size now);
};
