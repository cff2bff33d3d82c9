// SPDX-License-Identifier: MIT
// What the window library does not tell about a window of the X Window System.
#pragma once

#include <string>

struct SDL_Window;

class X11Window {
public:
    /// Whether the window manager keeps the window as an icon. An icon is unmapped just as a window
    /// is that was taken off the screen; only the manager's own note tells one from the other.
    static bool isIcon(SDL_Window* window);

    /// A setting of the X server's for all programs ("Xft.dpi"); empty if there is none.
    static std::string resource(const std::string& name);
};
