// The question whether sounds are wanted although the phone is silent. It stands above every screen
// while the program is paused, and takes the soft keys for itself.
#pragma once

#include "CanvasOverlay.h"

class SilentQuestion : public CanvasOverlay {
public:
    /// The phone's own setting; false if it cannot be read.
    static bool isPhoneSilent();

    /// The menu is shown: from now on the question may be raised, and it is if the phone is silent
    /// and it was not asked yet.
    static void offer();

    /// Pauses the program and raises the question over the screen that the pause leaves. Does no
    /// harm if the pause has raised it already.
    static void raise();

    /// The phone is back from the background: raises the question if it is due, resumes the program
    /// if no question stands.
    static void resume();

    /// "Yes" (left), "No" (right) and the question over the current picture.
    void paint() override;

    /// A touch on one of the two keys decides about sounds and resumes the program; any other touch
    /// leaves the question where it is.
    void release(int32_t x, int32_t y) override;

private:
    static void withdraw();
};
