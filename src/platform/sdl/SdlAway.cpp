// SPDX-License-Identifier: MIT
#include "SdlAway.h"

#include <SDL.h>

#include <csignal>

namespace {

// How long after the window vanished to ask if it is an icon: by then the window manager has noted
// it.
constexpr int64_t kHiddenCheckAfterMs = 100;

}  // namespace

void SdlAway::handle(const SDL_Event& event, int64_t nowMs) {
    if (event.type == SDL_APP_WILLENTERBACKGROUND || event.type == SDL_APP_DIDENTERFOREGROUND) {
        set(kBySystem, event.type == SDL_APP_WILLENTERBACKGROUND);
    } else if (event.type != SDL_WINDOWEVENT) {
        return;
    } else if (event.window.event == SDL_WINDOWEVENT_HIDDEN) {
        hiddenCheckMs = nowMs + kHiddenCheckAfterMs;
    } else if (event.window.event == SDL_WINDOWEVENT_SHOWN) {
        hiddenCheckMs = DueTime::kNever;
        set(kHidden, false);
    }
}

void SdlAway::standStill() {
    if (told && (reasons & kStopped) != 0) {
        std::raise(SIGSTOP);  // returns when the program is continued
        set(kStopped, false);
    }
}

void SdlAway::set(Reason reason, bool away) {
    reasons = away ? reasons | reason : reasons & ~static_cast<uint32_t>(reason);
}

bool SdlAway::deliver(HostListener& listener, int64_t nowMs) {
    if (hiddenCheckMs != DueTime::kNever && nowMs >= hiddenCheckMs) {
        hiddenCheckMs = DueTime::kNever;
        set(kHidden, !window.isIcon());
    }
    const bool away = reasons != 0;
    if (away == told) {
        return false;
    }
    told = away;
    if (away) {
        listener.onBackground();
    } else {
        listener.onForeground();
    }
    return true;
}
