// SPDX-License-Identifier: MIT
// Begins the work on a new take: it is cleaned up, and then the user chooses the effect.
#pragma once

#include <cstdint>

class TakeJob {
public:
    /// Loads the take on file and enters the processing screen. Without a take it shows the fatal
    /// message.
    static void enter();

    /// Replaces the take with a sound, deletes the old take's result, and goes on as after a
    /// recording.
    /// @param samples  16 kHz mono
    /// @param count    at least 1; samples after the longest take are left out
    static void use(const int16_t* samples, int32_t count);

    /// The same with a take that was recorded before, but without cutting it: a recording that
    /// ended some frames late is longer than the longest take.
    static void bringBack(const int16_t* samples, int32_t count);

private:
    static bool write(const int16_t* samples, int32_t count);
};
