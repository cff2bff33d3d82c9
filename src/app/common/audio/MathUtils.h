// A handful of integer functions; results wrap at 32 bits.
#pragma once

#include "Arithmetic.h"
#include "ClassLife.h"

class MathUtils : public ClassLife {
public:
    static constexpr int32_t sqr(int32_t a) { return wrapMul(a, a); }

    /// The smallest integer has no positive twin and stays as it is.
    static constexpr int32_t abs(int32_t a) { return a < 0 ? wrapSub(0, a) : a; }

    static constexpr int32_t min(int32_t a, int32_t b) { return a < b ? a : b; }

    static constexpr int32_t max(int32_t a, int32_t b) { return a > b ? a : b; }

    static constexpr int32_t min(int32_t a, int32_t b, int32_t c) {
        return min(min(a, b), min(a, c));
    }

    static constexpr int32_t max(int32_t a, int32_t b, int32_t c) {
        return max(max(a, b), max(a, c));
    }

    /// Whichever of a and b lies nearer to target; b where both are equally far.
    static constexpr int32_t getClosest(int32_t a, int32_t b, int32_t target) {
        return abs(wrapSub(target, a)) < abs(wrapSub(target, b)) ? a : b;
    }
};
