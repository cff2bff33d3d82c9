// SPDX-License-Identifier: MIT
// Coordinate sums that stay at the largest or smallest 32-bit value instead of wrapping: a
// rectangle far outside the screen stays outside.
#pragma once

#include <cstdint>
#include <limits>

constexpr int32_t saturate(int64_t value) {
    using Limits = std::numeric_limits<int32_t>;
    return value < Limits::min()   ? Limits::min()
           : value > Limits::max() ? Limits::max()
                                   : static_cast<int32_t>(value);
}

constexpr int32_t satAdd(int32_t a, int32_t b) {
    return saturate(int64_t{a} + b);
}

constexpr int32_t satSub(int32_t a, int32_t b) {
    return saturate(int64_t{a} - b);
}

/// The last column (row) of a range with this first one and this width (height).
constexpr int32_t lastOf(int32_t first, int32_t size) {
    return saturate(int64_t{first} + size - 1);
}

/// The width (height) of the range from the first to the last column (row).
constexpr int32_t sizeOf(int32_t first, int32_t last) {
    return saturate(int64_t{last} + 1 - first);
}
