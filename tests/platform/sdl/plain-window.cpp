// SPDX-License-Identifier: MIT
// The least program with such a window: opens it and shows one ready picture. The time of Murmelo's
// first picture is compared with it.
#include "VideoDriver.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kWidthPx = 480;
constexpr int kHeightPx = 800;

std::array<uint16_t, static_cast<size_t>(kWidthPx) * kHeightPx> picture;  // RGB565

}  // namespace

int main() {
    std::fill(picture.begin(), picture.end(), uint16_t{0xFFFF});
    if (VideoDriver::begin()) {
        return EXIT_FAILURE;
    }
    SDL_Window* window =
        SDL_CreateWindow("Murmelo", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, kWidthPx,
                         kHeightPx, SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    SDL_Surface* surface = window != nullptr ? SDL_GetWindowSurface(window) : nullptr;
    SDL_Surface* ready = SDL_CreateRGBSurfaceWithFormatFrom(picture.data(), kWidthPx, kHeightPx, 16,
                                                            kWidthPx * 2, SDL_PIXELFORMAT_RGB565);
    if (surface == nullptr || ready == nullptr ||
        SDL_BlitSurface(ready, nullptr, surface, nullptr) != 0) {
        return EXIT_FAILURE;
    }
    SDL_UpdateWindowSurface(window);
    SDL_Event event;
    while (SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT) {
    }
    SDL_Quit();
    return EXIT_SUCCESS;
}
