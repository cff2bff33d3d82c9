// SPDX-License-Identifier: MIT
#include "GrainSearch.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>

namespace {

constexpr int32_t kRoughBits = 8;
constexpr int32_t kVectorBytes = 32;  // rough samples that are summed at a time
constexpr int32_t kOffsetBlock = 16;  // offsets that are skipped together

struct Range {
    int32_t lowest;
    int32_t highest;
};

/// The exact sum for one offset. The caller makes sure that it fits.
MURMELO_KERNEL_PART int32_t difference(const int32_t* grain,
                                       const int32_t* target,
                                       int32_t window) {
    int32_t sum = 0;
    for (int32_t j = 0; j < window; j++) {
        sum += std::abs(grain[j] - target[j]);
    }
    return sum;
}

/// The same for samples outside 16 bits; wraps like all sample arithmetic.
int32_t wrappingDifference(const int32_t* grain, const int32_t* target, int32_t window) {
    int32_t sum = 0;
    for (int32_t j = 0; j < window; j++) {
        const int32_t d = wrapSub(grain[j], target[j]);
        sum = d < 0 ? wrapSub(sum, d) : wrapAdd(sum, d);
    }
    return sum;
}

MURMELO_KERNEL_PART Range rangeOf(const int32_t* grain,
                                  int32_t grainCount,
                                  const int32_t* target,
                                  int32_t targetCount) {
    int32_t lowest = grain[0];
    int32_t highest = grain[0];
    for (int32_t i = 0; i < grainCount; i++) {
        lowest = grain[i] < lowest ? grain[i] : lowest;
        highest = grain[i] > highest ? grain[i] : highest;
    }
    for (int32_t i = 0; i < targetCount; i++) {
        lowest = target[i] < lowest ? target[i] : lowest;
        highest = target[i] > highest ? target[i] : highest;
    }
    return {lowest, highest};
}

MURMELO_KERNEL_PART void roughen(const int32_t* samples,
                                 int32_t lowest,
                                 int32_t shift,
                                 uint8_t* __restrict rough,
                                 int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        rough[i] = static_cast<uint8_t>((samples[i] - lowest) >> shift);
    }
}

/// Adds the rough differences of a window of whole vectors to each sum; returns the first offset
/// with the smallest one.
MURMELO_KERNEL_PART int32_t addWholeVectors(const uint8_t* grain,
                                            const uint8_t* target,
                                            int32_t* __restrict sums,
                                            int32_t offsets,
                                            int32_t window) {
    int32_t best = 0;
    int32_t smallest = std::numeric_limits<int32_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        const uint8_t* here = grain + o;
        int32_t sum = sums[o];
        for (int32_t j = 0; j < window; j++) {
            sum += std::abs(here[j] - target[j]);
        }
        sums[o] = sum;
        best = sum < smallest ? o : best;
        smallest = sum < smallest ? sum : smallest;
    }
    return best;
}

/// The rough sum at each offset; returns the first offset with the smallest one.
MURMELO_KERNEL_PART int32_t roughDifferences(const uint8_t* grain,
                                             const uint8_t* target,
                                             int32_t* __restrict sums,
                                             int32_t offsets,
                                             int32_t window) {
    const int32_t whole = window & -kVectorBytes;
    std::fill_n(sums, offsets, 0);
    for (int32_t j = whole; j < window; j++) {
        const uint8_t* column = grain + j;
        for (int32_t o = 0; o < offsets; o++) {
            sums[o] += std::abs(column[o] - target[j]);
        }
    }
    return addWholeVectors(grain, target, sums, offsets, whole);
}

/// The largest amount by which an exact sum can be less than its rough sum << shift, because of the
/// bits that rounding drops.
MURMELO_KERNEL_PART int32_t slackOf(const int32_t* target,
                                    int32_t lowest,
                                    int32_t shift,
                                    int32_t window) {
    const int32_t mask = (1 << shift) - 1;
    int32_t slack = 0;
    for (int32_t j = 0; j < window; j++) {
        const int32_t remainder = (target[j] - lowest) & mask;
        slack += std::max(remainder, mask - remainder);
    }
    return slack;
}

/// True if one of a block of sums is at most the limit.
MURMELO_KERNEL_PART bool hasPromising(const int32_t* sums, int32_t limit) {
    int32_t promising = 0;
    for (int32_t k = 0; k < kOffsetBlock; k++) {
        promising |= sums[k] <= limit ? 1 : 0;
    }
    return promising != 0;
}

/// Overwrites sums with the indices of the offsets whose rough sum is at most limit, ascending;
/// returns their count. Inside a block no branch depends on a sum, because it could not be
/// predicted.
MURMELO_KERNEL_PART int32_t keepPromising(int32_t* sums, int32_t offsets, int32_t limit) {
    int32_t count = 0;
    for (int32_t block = 0; block < offsets; block += kOffsetBlock) {
        if (!hasPromising(sums + block, limit)) {
            continue;
        }
        for (int32_t o = block; o < block + kOffsetBlock; o++) {
            const int32_t isPromising = sums[o] <= limit ? 1 : 0;
            sums[count] = o;  // count <= o: this sum is no longer needed
            count += isPromising;
        }
    }
    return count;
}

}  // namespace

GrainSearch::GrainSearch(int32_t offsets, int32_t window)
    : offsets(offsets)
    , window(window)
    , roughGrain(static_cast<size_t>(offsets + window))
    , roughTarget(static_cast<size_t>(window))
    // Padded to whole blocks; padding never passes the limit.
    , roughSums(static_cast<size_t>(offsets + kOffsetBlock)) {}

MURMELO_KERNEL_PART int32_t GrainSearch::search(const int32_t* grain,
                                                const int32_t* target,
                                                int32_t window) {
    if (offsets == 0 || window == 0) {
        return bestOffsetInFull(grain, target, offsets, window);
    }
    const int32_t grainWindow = offsets + window - 1;
    const Range range = rangeOf(grain, grainWindow, target, window);
    const int64_t width = int64_t{range.highest} - range.lowest;
    if (width * window >= std::numeric_limits<int32_t>::max()) {
        return bestOffsetInFull(grain, target, offsets, window);  // a sum might wrap
    }
    const auto bits = static_cast<int32_t>(std::bit_width(static_cast<uint32_t>(width)));
    const int32_t shift = std::max(bits - kRoughBits, 0);
    roughen(grain, range.lowest, shift, roughGrain.data(), grainWindow);
    roughen(target, range.lowest, shift, roughTarget.data(), window);
    const int32_t roughBest =
        roughDifferences(roughGrain.data(), roughTarget.data(), roughSums.data(), offsets, window);

    // The exact sum at roughBest is an upper bound of the smallest one. An exact sum is at least
    // its rough sum << shift less the slack, so an offset whose rough sum is above limit cannot
    // win.
    const int32_t enough = difference(grain + roughBest, target, window);
    const int64_t slack = slackOf(target, range.lowest, shift, window);
    const auto limit = static_cast<int32_t>((enough + slack) >> shift);
    int32_t* promising = roughSums.data();
    std::fill_n(promising + offsets, kOffsetBlock, std::numeric_limits<int32_t>::max());
    const int32_t count = keepPromising(promising, offsets, limit);
    int32_t best = roughBest;
    int32_t smallest = enough;
    for (int32_t i = 0; i < count; i++) {
        const int32_t o = promising[i];
        const int32_t sum = difference(grain + o, target, window);
        // Of equal sums the first offset wins. If o is roughBest, nothing changes.
        if (sum < smallest || (sum == smallest && o < best)) {
            smallest = sum;
            best = o;
        }
    }
    return best;
}

MURMELO_KERNEL int32_t GrainSearch::bestOffset(const int32_t* grain, const int32_t* target) {
    // The windows that the effects use are constants here: loops of a known length are faster.
    switch (window) {
    case 100:
        return search(grain, target, 100);
    case 200:
        return search(grain, target, 200);
    default:
        return search(grain, target, window);
    }
}

int32_t GrainSearch::bestOffsetInFull(const int32_t* grain,
                                      const int32_t* target,
                                      int32_t offsets,
                                      int32_t window) {
    int32_t best = 0;
    int32_t smallest = std::numeric_limits<int32_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        const int32_t sum = wrappingDifference(grain + o, target, window);
        if (sum < smallest) {
            smallest = sum;
            best = o;
        }
    }
    return best;
}
