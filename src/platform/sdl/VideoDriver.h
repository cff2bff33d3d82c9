// SPDX-License-Identifier: MIT
// Chooses the window system that SDL uses, and switches off what the program does not need.
#pragma once

#include "Problem.h"

class VideoDriver {
public:
    /// Starts SDL's video on X11 or Wayland, or on the driver that SDL_VIDEODRIVER names. Returns
    /// why it failed.
    static Problem begin();
};
