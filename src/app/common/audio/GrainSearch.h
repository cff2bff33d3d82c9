// SPDX-License-Identifier: MIT
// Finds where a grain fits best onto the output made so far: the offset with the smallest sum of
// absolute differences.
//
// Exact sums at every offset would be most of the work of a pitch change. So all offsets are first
// compared with samples rounded down to 8 bits, many at a time. A rough sum gives a lower bound of
// the exact one: nine of ten offsets need no exact sum, and the result is the same.
#pragma once

#include <cstdint>
#include <vector>

class GrainSearch {
public:
    /// @param offsets  number of offsets that are tried, from 0 on
    /// @param window  samples compared at each
    GrainSearch(int32_t offsets, int32_t window);

    /// The first offset o with the smallest sum of |grain[o + j] - target[j]| over j < window; 0 if
    /// there is none to try. Reads grain[0 .. offsets + window - 2] and target[0 .. window - 1].
    int32_t bestOffset(const int32_t* grain, const int32_t* target);

    /// The same by exact sums alone, for any number of offsets and any window. Used for grains at
    /// the edge of their arrays.
    static int32_t
    bestOffsetInFull(const int32_t* grain, const int32_t* target, int32_t offsets, int32_t window);

private:
    int32_t search(const int32_t* grain, const int32_t* target, int32_t window);

    int32_t offsets;
    int32_t window;
    std::vector<uint8_t> roughGrain;
    std::vector<uint8_t> roughTarget;
    std::vector<int32_t> roughSums;  // for each offset
};
