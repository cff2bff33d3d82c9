// SPDX-License-Identifier: MIT
#include "EventWait.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

EventWait::EventWait()
    : doNap([this](int64_t ms) { return nap(ms); }) {}

EventWait::EventWait(Nap nap)
    : doNap(std::move(nap)) {}

void EventWait::begin() {
    // SDL adds an event of its own after each check of the window system. A wait makes many checks
    // and removes none of these events: after a minute or two they would fill the queue, no other
    // event would have room, and each check would go through all of them.
    SDL_EventState(SDL_POLLSENTINEL, SDL_IGNORE);
    const char* name = SDL_GetCurrentVideoDriver();
    const std::string driver = name != nullptr ? name : "";
    driverWaits = driver == "x11" || driver == "wayland";
    const std::lock_guard<std::mutex> lock(mutex);
    wakingEvent = SDL_RegisterEvents(1);
}

void EventWait::end() {
    const std::lock_guard<std::mutex> lock(mutex);
    wakingEvent = 0;
}

void EventWait::listen() {
    const std::lock_guard<std::mutex> lock(mutex);
    woken = false;
}

bool EventWait::isWoken() {
    const std::lock_guard<std::mutex> lock(mutex);
    return woken;
}

void EventWait::wait(int64_t ms) {
    if (isWoken()) {
        return;
    }
    if (!driverWaits) {
        look(ms);
    } else if (ms == kForever) {
        SDL_WaitEvent(nullptr);
    } else {
        SDL_WaitEventTimeout(nullptr, static_cast<int>(std::min<int64_t>(ms, INT32_MAX)));
    }
}

/// Checks every kLookMs. With the drivers that cannot wait SDL itself would check a thousand times
/// a second.
void EventWait::look(int64_t ms) {
    int64_t leftMs = ms;
    for (;;) {
        SDL_PumpEvents();
        if (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE || leftMs == 0) {
            return;
        }
        const int64_t passedMs = doNap(ms == kForever ? kLookMs : std::min(leftMs, kLookMs));
        leftMs = ms == kForever ? kForever : std::max<int64_t>(leftMs - passedMs, 0);
    }
}

int64_t EventWait::nap(int64_t ms) {
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock<std::mutex> lock(mutex);
    waking.wait_for(lock, std::chrono::milliseconds(ms), [this] { return woken; });
    const auto passed = std::chrono::steady_clock::now() - begin;
    return std::chrono::ceil<std::chrono::milliseconds>(passed).count();
}

void EventWait::wake() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (wakingEvent == 0) {
        return;
    }
    SDL_Event event{};
    event.type = wakingEvent;
    SDL_PushEvent(&event);
    woken = true;
    waking.notify_all();
}
