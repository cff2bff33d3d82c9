// SPDX-License-Identifier: MIT
#include "SdlInput.h"

#include <SDL.h>

using Pointer = OneFinger::Pointer;

SdlInput::SdlInput(const SdlPlaces& places)
    : places(places) {}

bool SdlInput::handle(const SDL_Event& event, HostListener& listener) {
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
