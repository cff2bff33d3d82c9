// SPDX-License-Identifier: MIT
// Mouse and touch screen, turned into what the phone has: one finger.
#pragma once

#include "Host.h"
#include "OneFinger.h"
#include "WindowLayout.h"

#include <cstdint>

union SDL_Event;
struct SDL_MouseButtonEvent;

/// Where things lie in the window.
class SdlPlaces {
public:
    virtual ~SdlPlaces() = default;

    /// The display's pixel at a place in the window, given as fractions of its width and height, 0
    /// to 1.
    /// @param part  that a finger was set down on, as WindowLayout::at()
    virtual DisplayPoint fromShares(double xShare, double yShare, WindowPart part) const = 0;

    /// The same for a place in the mouse's units.
    virtual DisplayPoint fromMouse(int32_t mouseX, int32_t mouseY, WindowPart part) const = 0;
};

class SdlInput {
public:
    /// @param places  not owned
    explicit SdlInput(const SdlPlaces& places);

    /// @returns true if a callback was delivered
    bool handle(const SDL_Event& event, HostListener& listener);

private:
    bool mousePressed(const SDL_MouseButtonEvent& button, HostListener& listener);
    bool fingerMoved(const SDL_Event& event, HostListener& listener);

    const SdlPlaces& places;
    OneFinger finger;
    WindowPart held = WindowPart::kNone;  // where the finger was set down
};
