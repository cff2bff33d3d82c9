// Finds where a grain fits best onto what stands already: the offset with the smallest sum of
// absolute differences.
//
// Summing every offset in full is most of the work of a pitch change. Rounded down to 8 bits the
// same windows are compared many samples at a time; the rough sum bounds the exact one from below,
// so that nine offsets of ten need no exact sum. The winner is the same.
#pragma once

#include <cstdint>
#include <vector>

class GrainSearch {
public:
    /// @param offsets  how many offsets are tried, 0 and on
    /// @param window  samples compared at each
    GrainSearch(int32_t offsets, int32_t window);

    /// The first offset o with the smallest sum of |grain[o + j] - target[j]| over j < window; 0 if
    /// there is none to try. Reads grain[0 .. offsets + window - 2] and target[0 .. window - 1].
    int32_t bestOffset(const int32_t* grain, const int32_t* target);

    /// The same for fewer offsets or a shorter window, for grains at the edge of their arrays.
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
