// SPDX-License-Identifier: MIT
// Measures a sound: how long, how loud, how high.
#pragma once

#include <cstdint>

class SoundMeter {
public:
    /// @param samples  a counted array of 8 kHz samples
    explicit SoundMeter(const int32_t* samples);

    double seconds() const;

    /// Largest sample against full scale; minus infinity for silence.
    double peakDb() const;

    /// Root of the mean square against full scale; minus infinity for silence.
    double rmsDb() const;

    /// Median pitch of the voiced parts, 60 to 500 Hz; 0 if nothing is voiced.
    double pitchHz() const;

private:
    static double windowPitchHz(const int32_t* samples);

    const int32_t* samples;
};
