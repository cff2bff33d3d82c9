// SPDX-License-Identifier: MIT
// 32-bit arithmetic with names for what happens: sums that wrap, comparisons of times, and one way
// from float to integer.
#pragma once

#include <cstdint>
#include <limits>

static_assert((-1 >> 1) == -1, "a right shift of a negative number must be arithmetic");

constexpr int32_t wrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t wrapSub(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t wrapMul(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

/// True if a comes before b on a clock of 32 bits that wraps round. Correct for times that are at
/// most 2^31 - 1 apart.
constexpr bool timeBefore(int32_t a, int32_t b) {
    return wrapSub(a, b) < 0;
}

/// a << shift for 0 <= shift <= 31, also for negative a; bits that leave at the top are lost.
constexpr int32_t wrapShl(int32_t a, int32_t shift) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) << shift);
}

/// Truncates toward zero; out of range saturates, NaN becomes 0. Written as three
/// selections without a jump, so that a loop of conversions becomes vector instructions.
constexpr int32_t toInt32(double value) {
    const double number = value == value ? value : 0.0;
    const double fromBelow = number > -2147483648.0 ? number : -2147483648.0;
    const double inRange = fromBelow < 2147483647.0 ? fromBelow : 2147483647.0;
    return static_cast<int32_t>(inRange);
}

/// Truncates toward zero; out of range saturates, NaN becomes 0.
constexpr int32_t toInt32(float value) {
    return toInt32(static_cast<double>(value));  // every float is a double exactly
}

/// Clamps to the range of a 16-bit sample.
constexpr int32_t clampToSample(int32_t value) {
    return value < -32768 ? -32768 : (value > 32767 ? 32767 : value);
}
