// SPDX-License-Identifier: MIT
// Other programs' engines that do the same work on the same samples, each used as its makers
// recommend for a whole sound in memory. Every call makes a new engine, as each run of an effect
// makes its own state. Converting the samples to the engine's type is not timed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace peers {

/// Tempo 2.0 is twice as fast. Returns the samples made.
size_t soundTouch(const std::vector<float>& samples, float pitch, float tempo);

enum class RubberBandEngine { kFaster, kFiner };

size_t
rubberBand(const std::vector<float>& samples, double pitch, double tempo, RubberBandEngine engine);

/// A chain of SoX effects, each a name and its arguments.
size_t sox(const std::vector<int32_t>& samples,
           const std::vector<std::vector<std::string>>& effects);

/// Encodes and decodes the sound.
size_t lpc10(const std::vector<int16_t>& samples);
size_t codec2(const std::vector<int16_t>& samples);

}  // namespace peers
