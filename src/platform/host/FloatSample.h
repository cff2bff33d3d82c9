// SPDX-License-Identifier: MIT
// Brings samples that a decoder or a browser delivers as floats into range; in a damaged file they
// may have any value.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

class FloatSample {
public:
    /// Turns NaN into silence and clamps values far beyond full scale. An infinite one would turn
    /// every sample within reach of a rate converter's filter into NaN.
    /// @param value  full scale is 1
    static float tamed(float value) { return clamped(value, -kLoudest, kLoudest); }

    /// Clamps to low..high; NaN becomes silence.
    static float clamped(float value, float low, float high) {
        return std::isnan(value) ? 0.0F : std::clamp(value, low, high);
    }

    /// Rounded to the nearest (a half to the even neighbour) and clamped; NaN becomes silence.
    /// @param value  full scale is 32768
    static int16_t toInt16(float value) {
        return static_cast<int16_t>(std::lrint(clamped(value, INT16_MIN, INT16_MAX)));
    }

private:
    // Largest value, times full scale (24 dB). Decoders overshoot by a few decibels; these must not
    // be clamped here, because the mean of channels or a lower rate may bring them back into range.
    static constexpr float kLoudest = 16.0F;
};
