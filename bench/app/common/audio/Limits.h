// SPDX-License-Identifier: MIT
// For each effect, only the work that every exact version must do. The rest of an effect's time
// could still be saved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace limits {

/// Copies the sound once. Like the others, returns the number of samples made.
size_t copy(const std::vector<int32_t>& samples);

/// Copies the sound once, with the last sample first.
size_t reversedCopy(const std::vector<int32_t>& samples);

/// Only the filters of the robot voices: each output needs the one before it, across all frames,
/// and the order of the roundings is fixed. Analysis and excitation are not timed.
size_t filterChain(const std::vector<int32_t>& samples);

/// Counts the level of each sample, and maps each sample by a curve.
size_t countAndMap(const std::vector<int32_t>& samples);

/// The parameters that determine the work of a change of pitch or tempo, in samples.
struct Grains {
    int32_t step;      // from grain to grain in the source
    int32_t distance;  // from grain to grain in the result
    int32_t fade;
    int32_t search;      // offsets
    int32_t stretchQ10;  // source samples for each output sample
};

/// Resamples each grain unless its pitch stays, compares it at every offset in samples of 8 bits
/// (whose preparation is not timed), and joins it.
size_t pasteGrains(const std::vector<int32_t>& samples, const Grains& grains);

}  // namespace limits
