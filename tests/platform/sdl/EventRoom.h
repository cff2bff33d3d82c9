// SPDX-License-Identifier: MIT
// Measures the room in SDL's event queue, for tests in which it is full.
#pragma once

#include <SDL.h>

#include <cstdint>

/// How many events SDL's queue has room for.
inline int32_t eventRoom() {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    int32_t count = 0;
    while (SDL_PushEvent(&event) == 1) {
        count++;
    }
    SDL_FlushEvent(SDL_USEREVENT);
    return count;
}
