// SPDX-License-Identifier: MIT
// Facts about a window of the X Window System that the window library does not report.
#pragma once

#include <string>

struct SDL_Window;

class X11Window {
public:
    /// True if the window manager shows the window as an icon. Both an icon and a hidden window are
    /// unmapped; only a property that the manager sets tells them apart.
    static bool isIcon(SDL_Window* window);

    /// The window's name for the desktop's dialogs: "x11:" and its number in hexadecimal digits.
    /// Empty if it is no window of X11.
    static std::string portalName(SDL_Window* window);

    /// The value of a setting that the X server holds for all programs ("Xft.dpi"); empty if there
    /// is none.
    static std::string resource(const std::string& name);
};
