// SPDX-License-Identifier: MIT
#include "StartErrors.h"

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
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Murmelo", message.c_str(), nullptr);
}
