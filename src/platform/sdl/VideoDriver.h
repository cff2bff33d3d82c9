// SPDX-License-Identifier: MIT
// Which window system SDL uses, and what it does without.
#pragma once

#include "Problem.h"

class VideoDriver {
public:
    /// Starts SDL's video on X11 or Wayland, or on the drivers that SDL_VIDEODRIVER names.
    static Problem begin();
};
