// SPDX-License-Identifier: MIT
// For each effect the part of its work that no exact version can leave out, and nothing else: what
// remains above it can still become faster.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace limits {

/// One copy of the sound. Like all of them, returns the samples made.
size_t copy(const std::vector<int32_t>& samples);

/// One copy with the last sample first.
size_t reversedCopy(const std::vector<int32_t>& samples);

/// The filters of the robot voices alone: each output waits for the one before it, across all
/// frames, and their roundings have a fixed order. Analysis and excitation are prepared before.
size_t filterChain(const std::vector<int32_t>& samples);

/// The level of each sample counted, and each sample mapped by a curve.
size_t countAndMap(const std::vector<int32_t>& samples);

/// What decides how much work a change of pitch or tempo is, in samples.
struct Grains {
    int32_t step;      // from grain to grain in the source
    int32_t distance;  // and in the result
    int32_t fade;
    int32_t search;      // offsets
    int32_t stretchQ10;  // source samples for each output sample
};

/// Each grain resampled unless its pitch stays, compared at every offset in samples of 8 bits,
/// which are prepared before, and joined.
size_t pasteGrains(const std::vector<int32_t>& samples, const Grains& grains);

}  // namespace limits
