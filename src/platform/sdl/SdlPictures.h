// SPDX-License-Identifier: MIT
// When the display's picture is looked at and drawn, and what goes with it: the window's title,
// and the words that are read aloud.
#pragma once

#include "Host.h"
#include "SdlStrip.h"
#include "SdlWindow.h"
#include "Speech.h"
#include "SpokenScreen.h"
#include "TakeKeeper.h"

#include <cstdint>
#include <functional>

class SdlPictures {
public:
    /// A clock, in microseconds.
    using Clock = std::function<int64_t()>;

    /// @param window, strip, speech, takes  not owned
    SdlPictures(
        SdlWindow& window, SdlStrip& strip, Speech& speech, const TakeKeeper& takes, Clock nowUs);

    /// @param newest  as Host::frameShown()
    void show(HostFrame* newest);

    /// Draws what is new, if a refresh of the display has passed since the last time.
    /// @param doors  null: no program
    void presentIfDue(HostDoors* doors);

    /// The window was resized or uncovered.
    void redraw();

    /// When presentIfDue() has something to do.
    int64_t dueMs();

    /// Pictures that came onto the screen.
    int64_t presented() const { return pictures; }

private:
    bool isDue();
    void speak(const ScreenTexts& texts);

    SdlWindow& window;
    SdlStrip& strip;
    Speech& speech;
    const TakeKeeper& takes;
    Clock nowUs;
    SpokenScreen spoken;
    HostFrame* frame = nullptr;
    bool frameIsNew = false;
    int64_t nextPictureUs = 0;
    int64_t pictures = 0;
};
