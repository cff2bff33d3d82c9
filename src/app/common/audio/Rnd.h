// SPDX-License-Identifier: MIT
// The program's own random numbers: seeded explicitly, so that an effect sounds the same each time
// it is applied to the same recording.
#pragma once

#include "Arithmetic.h"
#include "ClassLife.h"

class Rnd : public ClassLife {
public:
    Rnd() { init(kSeedX); }

    explicit Rnd(int32_t seed) { init(seed); }

    Rnd(int32_t a, int32_t b, int32_t c) { init(a, b, c); }

    void init(int32_t seed) { init(seed, kSeedY, kSeedZ); }

    void init(int32_t a, int32_t b, int32_t c);

    /// Any 32-bit value. In the header because the robot calls it for each sample.
    int32_t nextInt() {
        // Deliberate: the shift by 17 copies the sign, and the carry is 0 or -1, not 0 or 1: takes
        // played again must repeat the same drunk wobble.
        y ^= wrapShl(y, 13);
        y ^= y >> 17;
        y ^= wrapShl(y, 5);
        const int32_t t = wrapAdd(wrapAdd(z, w), carry);
        z = w;
        w = t & 0x7FFFFFFF;
        carry = t >> 31;
        x = wrapAdd(x, 545925293);
        return wrapAdd(wrapAdd(w, x), y);
    }

    /// From 0 to n, both included.
    int32_t nextInt(int32_t n) { return nextInt(0, n); }

    /// From low to high, both included.
    int32_t nextInt(int32_t low, int32_t high) {
        const int32_t value = nextInt() & 0x7FFFFFFF;
        const int32_t span = wrapAdd(wrapSub(high, low), 1);
        return span == 0 ? low : wrapAdd(value % span, low);  // an empty range gives low
    }

    /// From -0.5 up to, not including, 0.5.
    float nextFloat() { return static_cast<float>(nextInt() >> 8) * 0x1p-24F; }

    /// From -0.5 up to, not including, 0.5; draws twice.
    double nextDouble();

    /// Draws twice and returns the second value: a long has 32 bits here, so the first one, its
    /// upper half, is lost.
    int32_t nextLong();

private:
    static constexpr int32_t kSeedX = 123456789;
    static constexpr int32_t kSeedY = 362436069;
    static constexpr int32_t kSeedZ = 21288629;
    static constexpr int32_t kSeedW = 14921776;

    int32_t x = kSeedX;
    int32_t y = kSeedY;
    int32_t z = kSeedZ;
    int32_t w = kSeedW;
    int32_t carry = 0;
};
