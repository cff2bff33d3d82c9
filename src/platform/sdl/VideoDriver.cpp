// SPDX-License-Identifier: MIT
#include "VideoDriver.h"

#include "OwnEnvironment.h"

#include <SDL.h>

#include <cstdlib>
#include <unistd.h>

namespace {

void setUnlessSet(const char* variable, const char* value) {
    if (std::getenv(variable) == nullptr) {
        OwnEnvironment::set(variable, value);
    }
}

void setHints() {
    // The program computes the window's pixels itself. To look for a graphics processor that could
    // enlarge them would take longer than everything else before the first picture.
    if (SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION) == nullptr) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    SDL_SetHint(SDL_HINT_APP_NAME, "Murmelo");
    // The desktop entry's name: by it a Wayland desktop finds the icon and knows whose window it
    // is.
    setUnlessSet("SDL_VIDEO_WAYLAND_WMCLASS", "org.murmelo.Murmelo");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != 0;
}

/// True if the user has named the driver.
bool isChosen() {
    return isSet("SDL_VIDEODRIVER");
}

/// True if SDL will try X11 first: it does where DISPLAY is set, unless the user has named another
/// driver.
bool comesToX11() {
    const char* chosen = std::getenv("SDL_VIDEODRIVER");
    return isChosen() && chosen != nullptr ? SDL_strcmp(chosen, "x11") == 0 : isSet("DISPLAY");
}

/// Without a display SDL would choose a driver that shows nothing, and the program would run
/// invisibly until the user ends it.
void chooseWindowSystem() {
    if (!isChosen()) {
        SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "x11,wayland", SDL_HINT_OVERRIDE);
    }
}

std::string noWindow() {
    const std::string sentence = "no window can be opened: ";
    if (isChosen()) {
        return sentence + SDL_GetError();
    }
    return sentence + (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")
                           ? "the display that DISPLAY or WAYLAND_DISPLAY names cannot be reached"
                           : "there is no display, neither DISPLAY nor WAYLAND_DISPLAY names one");
}

/// Switches off features of SDL that this program does not use, and that would take longer than
/// everything else before the first picture.
void doWithoutDesktopServices() {
    // The user types no text, so the table of accented letters need not be read. Only on X11:
    // Wayland's keyboard accepts no empty table.
    if (comesToX11()) {
        OwnEnvironment::set("XCOMPOSEFILE", "/dev/null");
    }
    // If the session has no message bus, asking for one would start a process that looks for a
    // program to start one.
    const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
    const std::string bus = (runtimeFolder != nullptr ? runtimeFolder : "") + std::string("/bus");
    if (::access(bus.c_str(), F_OK) != 0) {
        setUnlessSet("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }
}

}  // namespace

Problem VideoDriver::begin() {
    setHints();
    chooseWindowSystem();
    doWithoutDesktopServices();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        return noWindow();
    }
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver != nullptr && SDL_strcmp(driver, "wayland") == 0) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "1");  // on Wayland SDL has no other way
    }
    return Problem::none();
}
