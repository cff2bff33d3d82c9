// SPDX-License-Identifier: MIT
// The question whether sounds are wanted although the phone is silent. It is shown above every
// screen while the program is paused, with soft keys of its own.
#pragma once

#include "CanvasOverlay.h"

class SilentQuestion : public CanvasOverlay {
public:
    /// The phone's own setting; false if it cannot be read.
    static bool isPhoneSilent();

    /// Called when the menu is shown: from now on the question may be raised, and it is raised now
    /// if the phone is silent and the question was not asked yet.
    static void offer();

    /// Pauses the program and raises the question over the screen that is shown after the pause.
    /// Does nothing if the pause has raised it already.
    static void raise();

    /// Called when the phone is back from the background: raises the question if it is due, and
    /// resumes the program if there is no question.
    static void resume();

    /// "Yes" (left), "No" (right) and the question over the current picture.
    void paint() override;

    /// A touch on one of the two keys decides about sounds and resumes the program; any other touch
    /// leaves the question where it is.
    void release(int32_t x, int32_t y) override;

private:
    static void withdraw();
};
