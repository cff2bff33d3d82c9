#include "GrainSearch.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>

namespace {

constexpr int32_t kRoughBits = 7;  // besides the sign; a byte then holds a rounded sample
constexpr int32_t kRoughZero = 128;
constexpr int32_t kVectorBytes = 32;  // a rough window of whole vectors has no slow remainder

/// The exact sum for one offset; wraps like all sample arithmetic.
MURMELO_KERNEL int32_t difference(const int32_t* grain, const int32_t* target, int32_t window) {
    uint32_t sum = 0;
    for (int32_t j = 0; j < window; j++) {
        const int32_t d = wrapSub(grain[j], target[j]);
        sum += d < 0 ? 0U - static_cast<uint32_t>(d) : static_cast<uint32_t>(d);
    }
    return static_cast<int32_t>(sum);
}

/// Bits that the largest magnitude of count samples needs, the sign not counted.
MURMELO_KERNEL uint32_t magnitudes(const int32_t* samples, int32_t count) {
    uint32_t all = 0;
    for (int32_t i = 0; i < count; i++) {
        all |= static_cast<uint32_t>(samples[i] ^ (samples[i] >> 31));
    }
    return all;
}

MURMELO_KERNEL void
roughen(const int32_t* samples, int32_t shift, uint8_t* __restrict rough, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        rough[i] = static_cast<uint8_t>((samples[i] >> shift) + kRoughZero);
    }
}

MURMELO_KERNEL void roughDifferences(const uint8_t* grain,
                                     const uint8_t* target,
                                     int32_t* __restrict sums,
                                     int32_t offsets,
                                     int32_t window) {
    for (int32_t o = 0; o < offsets; o++) {
        int32_t sum = 0;
        for (int32_t j = 0; j < window; j++) {
            sum += std::abs(grain[o + j] - target[j]);
        }
        sums[o] = sum;
    }
}

}  // namespace

GrainSearch::GrainSearch(int32_t offsets, int32_t window)
    : offsets(offsets)
    , window(window)
    , roughWindow(window / kVectorBytes * kVectorBytes)
    // A difference has one bit more than the samples; the sum as many more as window has.
    , safeBits(30 - std::bit_width(static_cast<uint32_t>(window)))
    , roughGrain(static_cast<size_t>(offsets + window))
    , roughTarget(static_cast<size_t>(window))
    , roughSums(static_cast<size_t>(offsets)) {}

int32_t GrainSearch::bestOffset(const int32_t* grain, const int32_t* target) {
    if (offsets == 0) {
        return 0;
    }
    const int32_t grainWindow = offsets + window - 1;
    const int32_t bits =
        std::bit_width(magnitudes(grain, grainWindow) | magnitudes(target, window));
    if (bits > safeBits || roughWindow == 0) {
        return bestOffsetInFull(grain, target, offsets, window);
    }
    const int32_t shift = std::max(bits - kRoughBits, 0);
    roughen(grain, shift, roughGrain.data(), grainWindow);
    roughen(target, shift, roughTarget.data(), roughWindow);
    roughDifferences(roughGrain.data(), roughTarget.data(), roughSums.data(), offsets, roughWindow);

    // Rounding down moves a difference by less than one rough step. So a sum is at least
    // (rough sum - window) rough steps, and no offset above the sum of the roughly best one wins.
    const auto roughBest = std::min_element(roughSums.begin(), roughSums.end());
    const int32_t roughBestOffset = static_cast<int32_t>(roughBest - roughSums.begin());
    const int32_t enough = difference(grain + roughBestOffset, target, window);
    const int32_t roughEnough = (enough >> shift) + roughWindow;
    int32_t best = 0;
    int32_t smallest = std::numeric_limits<int32_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        if (roughSums[static_cast<size_t>(o)] > roughEnough) {
            continue;
        }
        const int32_t sum = difference(grain + o, target, window);
        if (sum < smallest) {
            smallest = sum;
            best = o;
        }
    }
    return best;
}

int32_t GrainSearch::bestOffsetInFull(const int32_t* grain,
                                      const int32_t* target,
                                      int32_t offsets,
                                      int32_t window) {
    int32_t best = 0;
    int32_t smallest = std::numeric_limits<int32_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        const int32_t sum = difference(grain + o, target, window);
        if (sum < smallest) {
            smallest = sum;
            best = o;
        }
    }
    return best;
}
