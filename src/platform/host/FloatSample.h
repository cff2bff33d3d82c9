// SPDX-License-Identifier: MIT
// A sample as a decoder or a browser delivers it; in a damaged file it may have any value.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

class FloatSample {
public:
    /// Not a number becomes silence, and a value far beyond full scale is clamped. An infinite one
    /// would turn every sample that the filter of a rate converter reaches into not a number.
    /// @param value  full scale is 1
    static float tamed(float value) { return clamped(value, -kLoudest, kLoudest); }

    /// Clamps to low..high; not a number becomes silence.
    static float clamped(float value, float low, float high) {
        return std::isnan(value) ? 0.0F : std::clamp(value, low, high);
    }

    /// Rounded, a half to the even neighbour; clamped; not a number becomes silence.
    /// @param value  full scale is 32768
    static int16_t toInt16(float value) {
        return static_cast<int16_t>(std::lrint(clamped(value, INT16_MIN, INT16_MAX)));
    }

private:
    // Times full scale (24 dB). Decoders overshoot by a few decibels, which the mean of channels or
    // a lower rate may bring back into range, so these must not be clamped.
    static constexpr float kLoudest = 16.0F;
};
