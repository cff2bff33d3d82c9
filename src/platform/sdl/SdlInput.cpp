#include "SdlInput.h"

#include <SDL.h>

using Pointer = OneFinger::Pointer;

namespace {

bool navigate(HostKey key, HostDoors* doors) {
    return doors != nullptr && doors->navigate(key);
}

}  // namespace

SdlInput::SdlInput(const SdlPlaces& places)
    : places(places) {}

bool SdlInput::handle(const SDL_Event& event, HostListener& listener, HostDoors* doors) {
    DisplayPoint point;
    switch (event.type) {
    case SDL_MOUSEBUTTONDOWN:
        return mousePressed(event.button, listener);
    case SDL_MOUSEMOTION:
        point = places.fromMouse(event.motion.x, event.motion.y, held);
        return finger.moved(Pointer::kMouse, event.motion.which, point.x, point.y, listener);
    case SDL_MOUSEBUTTONUP:
        point = places.fromMouse(event.button.x, event.button.y, held);
        return event.button.button == SDL_BUTTON_LEFT &&
               finger.released(Pointer::kMouse, event.button.which, point.x, point.y, listener);
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

bool SdlInput::mousePressed(const SDL_MouseButtonEvent& button, HostListener& listener) {
    const DisplayPoint point = places.fromMouse(button.x, button.y, WindowPart::kNone);
    const bool secondOfDouble = button.clicks > 1 && OneFinger::isOnSoftKeys(point.y);
    const bool isPress = button.button == SDL_BUTTON_LEFT && !secondOfDouble &&
                         finger.pressed(Pointer::kMouse, button.which, point.x, point.y, listener);
    held = isPress ? point.part : held;
    return isPress;
}

bool SdlInput::fingerMoved(const SDL_Event& event, HostListener& listener) {
    const SDL_TouchFingerEvent& touch = event.tfinger;
    if (event.type == SDL_FINGERDOWN) {
        const DisplayPoint point = places.fromShares(touch.x, touch.y, WindowPart::kNone);
        const bool isPress = finger.tapped(Pointer::kFinger, touch.fingerId, point.x, point.y,
                                           touch.timestamp, listener);
        held = isPress ? point.part : held;
        return isPress;
    }
    const DisplayPoint point = places.fromShares(touch.x, touch.y, held);
    return event.type == SDL_FINGERMOTION
               ? finger.moved(Pointer::kFinger, touch.fingerId, point.x, point.y, listener)
               : finger.released(Pointer::kFinger, touch.fingerId, point.x, point.y, listener);
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
