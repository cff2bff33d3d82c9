// SPDX-License-Identifier: MIT
// The least program with such a window: opens it and shows one ready picture. The time of Murmelo's
// first picture is compared with it.
#include "VideoDriver.h"

#include <SDL.h>

#include <cstdint>
#include <cstdlib>

int main() {
    if (VideoDriver::begin()) {
        return EXIT_FAILURE;
    }
    SDL_Window* window = SDL_CreateWindow("Murmelo", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                          480, 800, SDL_WINDOW_RESIZABLE);
    SDL_Surface* surface = window != nullptr ? SDL_GetWindowSurface(window) : nullptr;
    if (surface == nullptr) {
        return EXIT_FAILURE;
    }
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 255, 255, 255));
    SDL_UpdateWindowSurface(window);
    SDL_Event event;
    while (SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT) {
    }
    SDL_Quit();
    return EXIT_SUCCESS;
}
