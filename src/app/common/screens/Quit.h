// SPDX-License-Identifier: MIT
// Ends the program; no screen does so in another way.
#pragma once

class Quit {
public:
    /// The current frame is painted, and then the program ends.
    static void now();
};
