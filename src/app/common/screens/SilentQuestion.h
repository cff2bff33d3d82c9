// SPDX-License-Identifier: MIT
// The question about silence: "use sounds although the phone is silent?" It is shown over every
// screen while the program is paused, with soft keys of its own.
#pragma once

#include "CanvasOverlay.h"

class SilentQuestion : public CanvasOverlay {
public:
    /// The phone's own setting; false if it cannot be read.
    static bool isPhoneSilent();

    /// Called when the menu is shown. After this the question may be raised; if the phone is silent
    /// and the question was not asked yet, it is raised now.
    static void offer();

    /// Pauses the program and raises the question over the screen that is shown after the pause.
    /// Does nothing if the pause has raised it already.
    static void raise();

    /// Called when the phone is back from the background: raises the question if it is due, and
    /// resumes the program if there is no question.
    static void resume();

    /// Paints the question over the current picture, with "Yes" (left) and "No" (right).
    void paint() override;

    /// A touch on one of the two keys decides about sounds and resumes the program; other touches
    /// have no effect.
    void release(int32_t x, int32_t y) override;

private:
    static void withdraw();
};
