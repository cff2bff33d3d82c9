// SPDX-License-Identifier: MIT
// How large the window begins, and how much larger or smaller one step makes it.
#pragma once

#include "WindowMemory.h"

#include <cstdint>
#include <string>

class WindowSizes {
public:
    using Size = WindowMemory::Size;

    static constexpr int32_t kMinWidth = 120;
    static constexpr int32_t kMinHeight = 200;

    /// How much larger than usual the desktop shows everything, 1 and more; 0 if nothing says so.
    /// @param isScaled  the window system scales by itself, as Wayland does: it alone decides
    /// @param xftDpi    the X resource Xft.dpi; empty: none
    /// @param gdkScale  the variable GDK_SCALE; empty: none
    static double
    desktopScale(bool isScaled, const std::string& xftDpi, const std::string& gdkScale);

    /// The phone's size, scaled, or what the screen has room for in its proportions.
    /// @param room   what the screen has for windows; none: unknown
    static Size usual(double scale, Size room);

    /// One step larger or smaller, of half a pixel of the program's, in the present arrangement.
    /// @param room   as above; a size beyond it stays as it is
    static Size larger(Size now, Size room);
    static Size smaller(Size now);
};
