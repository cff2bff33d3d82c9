// SPDX-License-Identifier: MIT
// A sample as a decoder or a browser delivers it: a damaged file holds anything.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

class FloatSample {
public:
    /// Not a number becomes silence, and what is louder than any sound is clamped. An infinite
    /// sample would make everything not a number that the filter of a rate converter reaches.
    /// @param value  full scale is 1
    static float tamed(float value) { return clamped(value, -kLoudest, kLoudest); }

    /// Not a number becomes silence, wherever low and high lie.
    static float clamped(float value, float low, float high) {
        return std::isnan(value) ? 0.0F : std::clamp(value, low, high);
    }

    /// Rounded, a half to the even neighbour; clamped; not a number becomes silence.
    /// @param value  full scale is 32768
    static int16_t toInt16(float value) {
        return static_cast<int16_t>(std::lrint(clamped(value, INT16_MIN, INT16_MAX)));
    }

private:
    // Times full scale (24 dB). Decoders overshoot by a few decibels, which a mean of channels or a
    // lower rate may bring back: those must come through.
    static constexpr float kLoudest = 16.0F;
};
