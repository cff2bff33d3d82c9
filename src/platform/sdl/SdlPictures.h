// SPDX-License-Identifier: MIT
// Decides when to look at the display's picture and draw it. Each new picture also updates the
// window's title and the words that are read aloud.
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

    /// Draws what is new if at least one refresh of the display has passed since the last picture.
    /// @param doors  null: no program
    void presentIfDue(HostDoors* doors);

    /// The window was resized or uncovered.
    void redraw();

    /// When presentIfDue() has something to do.
    int64_t dueMs();

    /// The number of pictures that were drawn.
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
