// SPDX-License-Identifier: MIT
#include "StartErrors.h"

#include "DesktopNotice.h"
#include "SdlHost.h"

#include <SDL.h>

#include <cstdlib>

int StartErrors::tell(const std::string& message) const {
    SdlHost::print(message);
    if (inBox) {
        showBox(message);
    }
    return EXIT_FAILURE;
}

void StartErrors::showBox(const std::string& message) {
    if (SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Murmelo", message.c_str(), nullptr) != 0) {
        DesktopNotice::show("Murmelo", message);  // SDL has no box: Wayland without zenity
    }
}
