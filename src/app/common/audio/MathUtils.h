// SPDX-License-Identifier: MIT
// A handful of integer functions; results wrap at 32 bits.
#pragma once

#include "Arithmetic.h"
#include "ClassLife.h"

class MathUtils : public ClassLife {
public:
    static constexpr int32_t sqr(int32_t a) { return wrapMul(a, a); }

    /// The smallest integer stays as it is: 32 bits do not hold its positive value.
    static constexpr int32_t abs(int32_t a) { return a < 0 ? wrapSub(0, a) : a; }

    static constexpr int32_t min(int32_t a, int32_t b) { return a < b ? a : b; }

    static constexpr int32_t max(int32_t a, int32_t b) { return a > b ? a : b; }

    static constexpr int32_t min(int32_t a, int32_t b, int32_t c) {
        return min(min(a, b), min(a, c));
    }

    static constexpr int32_t max(int32_t a, int32_t b, int32_t c) {
        return max(max(a, b), max(a, c));
    }

    /// The nearer one of a and b to target; b if both are equally near.
    static constexpr int32_t getClosest(int32_t a, int32_t b, int32_t target) {
        return abs(wrapSub(target, a)) < abs(wrapSub(target, b)) ? a : b;
    }
};
