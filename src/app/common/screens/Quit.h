// SPDX-License-Identifier: MIT
// The one way in which a screen ends the program.
#pragma once

class Quit {
public:
    /// The current frame is painted, and then the program ends.
    static void now();
};
