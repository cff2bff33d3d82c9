// SPDX-License-Identifier: MIT
// The random numbers equal the generator's rule step by step, with and without a seed.
#include "Rnd.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The generator with 64-bit integers, cut to 32 bits by hand after each step.
class SlowRnd {
public:
    explicit SlowRnd(int64_t seed)
        : x(seed) {}

    int32_t next() {
        y = cut(y ^ cut(y * 8192));
        y = cut(y ^ floorDivided(y, 131072));
        y = cut(y ^ cut(y * 32));
        const int64_t t = cut(z + w + c);
        z = w;
        w = t < 0 ? t + 2147483648LL : t;
        c = t < 0 ? -1 : 0;
        x = cut(x + 545925293);
        return static_cast<int32_t>(cut(w + x + y));
    }

private:
    static int64_t cut(int64_t value) {
        const int64_t low = ((value % 4294967296LL) + 4294967296LL) % 4294967296LL;
        return low >= 2147483648LL ? low - 4294967296LL : low;
    }

    static int64_t floorDivided(int64_t value, int64_t by) {
        return static_cast<int64_t>(
            std::floor(static_cast<double>(value) / static_cast<double>(by)));
    }

    int64_t x;
    int64_t y = 362436069;
    int64_t z = 21288629;
    int64_t w = 14921776;
    int64_t c = 0;
};

}  // namespace

TEST(Rnd, followsTheGeneratorStepByStep) {
    for (const int32_t seed : {123456789, 0, -1, 77}) {
        Rnd rnd(seed);
        SlowRnd slow(seed);
        for (int32_t i = 0; i < 2000; i++) {
            ASSERT_EQ(slow.next(), rnd.nextInt()) << "seed " << seed << ", value " << i;
        }
    }
}

TEST(Rnd, withoutASeedIsThatOfTheKnownSeed) {
    Rnd without;
    Rnd with(123456789);
    Rnd all(123456789, 362436069, 21288629);
    for (int32_t i = 0; i < 100; i++) {
        const int32_t value = without.nextInt();
        EXPECT_EQ(value, with.nextInt());
        EXPECT_EQ(value, all.nextInt());
    }
}

TEST(Rnd, initStartsTheSequenceAgainCarryIncluded) {
    Rnd rnd(5);
    const int32_t first = rnd.nextInt();
    for (int32_t i = 0; i < 1000; i++) {
        rnd.nextInt();
    }
    rnd.init(5);
    Rnd fresh(5);
    EXPECT_EQ(first, rnd.nextInt());
    fresh.nextInt();
    for (int32_t i = 0; i < 1000; i++) {
        EXPECT_EQ(fresh.nextInt(), rnd.nextInt());
    }
}

TEST(Rnd, rangesIncludeBothEndsAndNothingElse) {
    Rnd rnd;
    bool seen[11] = {};
    for (int32_t i = 0; i < 5000; i++) {
        const int32_t upTo = rnd.nextInt(10);
        ASSERT_TRUE(upTo >= 0 && upTo <= 10) << upTo;
        const int32_t between = rnd.nextInt(-5, 5);
        ASSERT_TRUE(between >= -5 && between <= 5) << between;
        seen[between + 5] = true;
    }
    for (const bool value : seen) {
        EXPECT_TRUE(value);
    }
}

TEST(Rnd, rangeOfOneValueIsThatValue) {
    Rnd rnd;
    for (int32_t i = 0; i < 100; i++) {
        EXPECT_EQ(0, rnd.nextInt(0));
        EXPECT_EQ(5, rnd.nextInt(5, 5));
    }
}

TEST(Rnd, emptyRangeDoesNotDivideByZero) {
    Rnd rnd;
    EXPECT_EQ(0, rnd.nextInt(-1));
    EXPECT_EQ(8, rnd.nextInt(8, 7));
}

TEST(Rnd, floatsAndDoublesLieAroundZero) {
    Rnd rnd(9);
    SlowRnd slow(9);
    for (int32_t i = 0; i < 1000; i++) {
        const float value = rnd.nextFloat();
        EXPECT_EQ(std::floor(slow.next() / 256.0) / 16777216.0, static_cast<double>(value));
        ASSERT_TRUE(value >= -0.5F && value < 0.5F);
        const double high = std::floor(slow.next() / 32.0);
        const double low = std::floor(slow.next() / 64.0);
        const double exact = rnd.nextDouble();
        EXPECT_EQ((high * 67108864.0 + low) / 9007199254740992.0, exact);
        ASSERT_TRUE(exact >= -0.5 && exact < 0.5);
    }
}

TEST(Rnd, nextLongDrawsTwice) {
    Rnd rnd;
    Rnd other;
    rnd.nextLong();
    other.nextInt();
    other.nextInt();
    EXPECT_EQ(other.nextInt(), rnd.nextInt());
}
