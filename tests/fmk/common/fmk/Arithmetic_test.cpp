// SPDX-License-Identifier: MIT
// Wrapping sums, times across the wrap, and conversions from float.
#include "Arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();

}  // namespace

TEST(Arithmetic, sumsDifferencesAndProductsWrapAtTheEnds) {
    EXPECT_EQ(kMin, wrapAdd(kMax, 1));
    EXPECT_EQ(kMax, wrapSub(kMin, 1));
    EXPECT_EQ(0, wrapMul(0x10000, 0x10000));
    EXPECT_EQ(-131072, wrapShl(-1, 17));
    EXPECT_EQ(kMin, wrapShl(1, 31));
}

TEST(Arithmetic, aTimeIsBeforeAllThatFollowUpTo24DaysLater) {
    std::mt19937 random(13);
    for (int32_t i = 0; i < 100000; i++) {
        const auto time = static_cast<int32_t>(random());
        const auto laterMs = static_cast<int32_t>(random() % 0x7FFFFFFF) + 1;  // up to the largest
        const int32_t later = wrapAdd(time, laterMs);
        ASSERT_TRUE(timeBefore(time, later)) << time << " and " << laterMs << " ms";
        ASSERT_FALSE(timeBefore(later, time)) << time << " and " << laterMs << " ms";
        ASSERT_FALSE(timeBefore(time, time)) << time;
    }
}

TEST(Arithmetic, timesKeepTheirOrderWhereTheClockWraps) {
    EXPECT_TRUE(timeBefore(kMax, kMin));
    EXPECT_FALSE(timeBefore(kMin, kMax));
    EXPECT_TRUE(timeBefore(-1, 0));
    EXPECT_FALSE(timeBefore(0, -1));
    EXPECT_TRUE(timeBefore(1, kMin));  // 2^31 - 1 apart, the largest difference
    EXPECT_TRUE(timeBefore(0, kMax));
    EXPECT_FALSE(timeBefore(kMax, 0));
}

TEST(Arithmetic, floatToIntegerTruncatesTowardZero) {
    EXPECT_EQ(2, toInt32(2.99));
    EXPECT_EQ(-2, toInt32(-2.99));
    EXPECT_EQ(-2, toInt32(-2.99F));
    EXPECT_EQ(kMin, toInt32(-2147483648.75));
}

TEST(Arithmetic, floatToIntegerSaturatesOutOfRange) {
    EXPECT_EQ(kMax, toInt32(2147483648.0));
    EXPECT_EQ(kMax, toInt32(1e30F));
    EXPECT_EQ(kMin, toInt32(-1e30));
    EXPECT_EQ(kMax, toInt32(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(kMin, toInt32(-std::numeric_limits<double>::infinity()));
}

TEST(Arithmetic, notANumberBecomesZero) {
    EXPECT_EQ(0, toInt32(std::nan("")));
    EXPECT_EQ(0, toInt32(std::nanf("")));
}

TEST(Arithmetic, samplesClampToSixteenBits) {
    EXPECT_EQ(32767, clampToSample(32768));
    EXPECT_EQ(-32768, clampToSample(-32769));
    EXPECT_EQ(-5, clampToSample(-5));
}
