// What becomes of every fresh take: the clean-up, and then the choice of the effect.
#pragma once

#include <cstdint>

class TakeJob {
public:
    /// Loads the take on file and enters the processing screen. Without a take the fatal message
    /// stands afterwards.
    static void enter();

    /// Puts a sound in the place of the take, and goes on as after a recording. What was processed
    /// before is gone.
    /// @param samples  16 kHz mono
    /// @param count    at least 1; what goes beyond the longest take is left out
    static void use(const int16_t* samples, int32_t count);

    /// The same with a take that was recorded before: nothing is left out. A recording that ended
    /// some frames late is longer than the longest take.
    static void bringBack(const int16_t* samples, int32_t count);

private:
    static bool write(const int16_t* samples, int32_t count);
};
