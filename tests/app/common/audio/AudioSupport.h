// SPDX-License-Identifier: MIT
// Shared by the tests of the sound engine: arrays, signals, real speech, runs, and a pitch meter.
#pragma once

#include "Array.h"
#include "WavProc.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace audio {

using ::Array;
using Samples = std::vector<int32_t>;

template <typename T>
Array<T> toArray(const std::vector<T>& values) {
    Array<T> array(newArray<T>(static_cast<int32_t>(values.size())));
    std::copy(values.begin(), values.end(), array.get());
    return array;
}

template <typename T>
std::vector<T> toVector(const T* array) {
    return std::vector<T>(array, array + length(array));
}

/// Seeded noise of at most the given amplitude.
Samples noise(int32_t count, int32_t amplitude, uint32_t seed = 1);

/// Noise with silences, full scale and slow swells in it, which are hard for an effect.
Samples roughSignal(int32_t count, uint32_t seed = 1);

/// A voice-like tone: harmonics of a fundamental that glides from one frequency to the other.
Samples glide(int32_t count, double fromHz, double toHz);

/// A recording of Debian's asterisk-core-sounds-en-wav, 8 kHz. If the package is missing, the test
/// fails with a message.
Samples speech(const std::string& name);

/// Recordings of the same package one after the other, cut to this many seconds.
Samples speechOf(int32_t seconds);

/// Runs a processor to its end as a screen does; returns the result.
Samples run(WavProc& processor, const Samples& samples);

/// The same, and the progress values call by call.
Samples run(WavProc& processor, const Samples& samples, std::vector<int32_t>& progress);

/// Pitch in Hz of count samples (at least 400) by normalised autocorrelation, 60 to 500 Hz; 0 if
/// there is none.
double pitchHz(const int32_t* samples, int32_t count);

/// Median over the voiced windows of the whole signal.
double medianPitchHz(const Samples& samples);

}  // namespace audio
