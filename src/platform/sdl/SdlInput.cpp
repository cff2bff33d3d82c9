#include "SdlInput.h"

#include <SDL.h>

#include <algorithm>

using Touch = HostListener::Touch;

namespace {

constexpr uint32_t kDoubleTapMs = 500;

bool isOnDisplay(int32_t x, int32_t y) {
    return x >= 0 && x < HostFrame::kWidthPx && y >= 0 && y < HostFrame::kHeightPx;
}

/// A finger that leaves the display lets go, or goes on, at its edge.
void deliver(Touch touch, int32_t x, int32_t y, HostListener& listener) {
    listener.onTouch(touch, std::clamp(x, 0, HostFrame::kWidthPx - 1),
                     std::clamp(y, 0, HostFrame::kHeightPx - 1));
}

bool navigate(HostKey key, HostDoors* doors) {
    return doors != nullptr && doors->navigate(key);
}

}  // namespace

SdlInput::SdlInput(const SdlPlaces& places)
    : places(places) {}

bool SdlInput::handle(const SDL_Event& event, HostListener& listener, HostDoors* doors) {
    int32_t x = 0;
    int32_t y = 0;
    switch (event.type) {
    case SDL_MOUSEBUTTONDOWN:
        return mousePressed(event.button, listener);
    case SDL_MOUSEMOTION:
        places.fromMouse(event.motion.x, event.motion.y, x, y);
        return moved(Pointer::kMouse, event.motion.which, x, y, listener);
    case SDL_MOUSEBUTTONUP:
        places.fromMouse(event.button.x, event.button.y, x, y);
        return event.button.button == SDL_BUTTON_LEFT &&
               released(Pointer::kMouse, event.button.which, x, y, listener);
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
        return fingerMoved(event, listener);
    case SDL_KEYDOWN:
        return keyPressed(event.key, listener, doors);
    default:
        return false;
    }
}

bool SdlInput::pressed(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != Pointer::kNone || !isOnDisplay(x, y)) {
        return false;
    }
    down = pointer;
    downId = id;
    deliver(Touch::kPress, x, y, listener);
    return true;
}

bool SdlInput::moved(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != pointer || downId != id) {
        return false;
    }
    deliver(Touch::kMove, x, y, listener);
    return true;
}

bool SdlInput::released(Pointer pointer, int64_t id, int32_t x, int32_t y, HostListener& listener) {
    if (down != pointer || downId != id) {
        return false;
    }
    down = Pointer::kNone;
    deliver(Touch::kRelease, x, y, listener);
    return true;
}

bool SdlInput::mousePressed(const SDL_MouseButtonEvent& button, HostListener& listener) {
    int32_t x = 0;
    int32_t y = 0;
    places.fromMouse(button.x, button.y, x, y);
    // A job that took the phone seconds is done within a double click: its second half would press
    // a key of the next screen, that nobody has seen yet.
    const bool secondOfDouble = button.clicks > 1 && y >= HostFrame::kSoftKeysTopPx;
    return button.button == SDL_BUTTON_LEFT && !secondOfDouble &&
           pressed(Pointer::kMouse, button.which, x, y, listener);
}

bool SdlInput::fingerMoved(const SDL_Event& event, HostListener& listener) {
    int32_t x = 0;
    int32_t y = 0;
    const SDL_TouchFingerEvent& finger = event.tfinger;
    places.fromShares(finger.x, finger.y, x, y);
    switch (event.type) {
    case SDL_FINGERDOWN: {
        const bool onBar = y >= HostFrame::kSoftKeysTopPx;
        const bool secondOfDouble =
            onBar && lastBarTapMs != kNoTap && finger.timestamp - lastBarTapMs < kDoubleTapMs;
        if (secondOfDouble || !pressed(Pointer::kFinger, finger.fingerId, x, y, listener)) {
            return false;
        }
        lastBarTapMs = onBar ? finger.timestamp : kNoTap;
        return true;
    }
    case SDL_FINGERMOTION:
        return moved(Pointer::kFinger, finger.fingerId, x, y, listener);
    default:
        return released(Pointer::kFinger, finger.fingerId, x, y, listener);
    }
}

bool SdlInput::keyPressed(const SDL_KeyboardEvent& key, HostListener& listener, HostDoors* doors) {
    constexpr int kForOthers = KMOD_CTRL | KMOD_ALT | KMOD_GUI;
    if (key.repeat != 0 || (key.keysym.mod & kForOthers) != 0) {
        return false;
    }
    switch (key.keysym.sym) {
    case SDLK_VOLUMEUP:
    case SDLK_PLUS:
    case SDLK_EQUALS:  // the plus of keyboards that want a shift for it
    case SDLK_KP_PLUS:
        listener.onVolumeKey(true);
        return true;
    case SDLK_VOLUMEDOWN:
    case SDLK_MINUS:
    case SDLK_KP_MINUS:
        listener.onVolumeKey(false);
        return true;
    case SDLK_UP:
        return navigate(HostKey::kUp, doors);
    case SDLK_DOWN:
        return navigate(HostKey::kDown, doors);
    case SDLK_LEFT:
        return navigate(HostKey::kLeft, doors);
    case SDLK_RIGHT:
        return navigate(HostKey::kRight, doors);
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
    case SDLK_SPACE:
        return navigate(HostKey::kMiddle, doors);
    case SDLK_F1:
        return navigate(HostKey::kLeftSoft, doors);
    case SDLK_F2:
    case SDLK_ESCAPE:
        return navigate(HostKey::kRightSoft, doors);
    default:
        return false;
    }
}
