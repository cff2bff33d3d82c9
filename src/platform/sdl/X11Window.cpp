// SPDX-License-Identifier: MIT
#include "X11Window.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <array>
#include <cstdio>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xresource.h>
#include <X11/Xutil.h>

bool X11Window::isIcon(SDL_Window* window) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) {
        return (SDL_GetWindowFlags(window) & SDL_WINDOW_MINIMIZED) != 0;
    }
    Display* display = info.info.x11.display;
    const Atom stateName = XInternAtom(display, "WM_STATE", True);
    if (stateName == None) {
        return false;  // there is no window manager
    }
    Atom type = None;
    int bits = 0;
    unsigned long count = 0;  // NOLINT(google-runtime-int): the X library's own type
    unsigned long left = 0;   // NOLINT(google-runtime-int): the X library's own type
    unsigned char* words = nullptr;
    const int answer = XGetWindowProperty(display, info.info.x11.window, stateName, 0, 1, False,
                                          stateName, &type, &bits, &count, &left, &words);
    const bool known = answer == Success && bits == 32 && count == 1 && words != nullptr;
    // X returns properties of 32 bits as an array of long.
    // NOLINTNEXTLINE: as above
    const bool icon = known && *reinterpret_cast<unsigned long*>(words) == IconicState;
    if (words != nullptr) {
        XFree(words);
    }
    return icon;
}

std::string X11Window::portalName(SDL_Window* window) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) {
        return "";
    }
    std::array<char, 2 * sizeof info.info.x11.window + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%lx", info.info.x11.window);
    return std::string("x11:") + digits.data();
}

std::string X11Window::resource(const std::string& name) {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        return "";
    }
    std::string value;
    const char* settings = XResourceManagerString(display);
    XrmDatabase database = settings != nullptr ? XrmGetStringDatabase(settings) : nullptr;
    if (database != nullptr) {
        char* type = nullptr;
        XrmValue found{};
        if (XrmGetResource(database, name.c_str(), name.c_str(), &type, &found) != 0 &&
            found.addr != nullptr) {
            value = found.addr;
        }
        XrmDestroyDatabase(database);
    }
    XCloseDisplay(display);
    return value;
}
