// Mouse, touch screen and keyboard, turned into what the phone has: one finger, two volume keys,
// and the navigation keys for people without a touch screen.
#pragma once

#include "Host.h"
#include "OneFinger.h"

#include <cstdint>

union SDL_Event;
struct SDL_KeyboardEvent;
struct SDL_MouseButtonEvent;

/// Where things lie in the window.
class SdlPlaces {
public:
    virtual ~SdlPlaces() = default;

    /// A place in the window, as shares of its width and height, in pixels of the phone's display.
    virtual void fromShares(double xShare, double yShare, int32_t& x, int32_t& y) const = 0;

    /// The same for a place as the mouse counts.
    virtual void fromMouse(int32_t mouseX, int32_t mouseY, int32_t& x, int32_t& y) const = 0;
};

class SdlInput {
public:
    /// @param places  not owned
    explicit SdlInput(const SdlPlaces& places);

    /// @param doors  null: there is nobody to take navigation keys
    /// @returns whether a callback was delivered
    bool handle(const SDL_Event& event, HostListener& listener, HostDoors* doors);

private:
    bool mousePressed(const SDL_MouseButtonEvent& button, HostListener& listener);
    bool fingerMoved(const SDL_Event& event, HostListener& listener);
    static bool keyPressed(const SDL_KeyboardEvent& key, HostListener& listener, HostDoors* doors);

    const SdlPlaces& places;
    OneFinger finger;
};
