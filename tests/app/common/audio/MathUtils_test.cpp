// SPDX-License-Identifier: MIT
// The integer functions at both ends of their range, and where two results are equally good.
#include "MathUtils.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();

}  // namespace

TEST(MathUtils, sqrWraps) {
    EXPECT_EQ(49, MathUtils::sqr(-7));
    EXPECT_EQ(0, MathUtils::sqr(65536));
    EXPECT_EQ(65536 * 2 + 1, MathUtils::sqr(65537));
}

TEST(MathUtils, absKeepsTheSmallestInteger) {
    EXPECT_EQ(5, MathUtils::abs(-5));
    EXPECT_EQ(5, MathUtils::abs(5));
    EXPECT_EQ(kLowest, MathUtils::abs(kLowest));
}

TEST(MathUtils, minAndMaxOfTwoAndThree) {
    EXPECT_EQ(-3, MathUtils::min(-3, 2));
    EXPECT_EQ(2, MathUtils::max(-3, 2));
    for (const auto& [a, b, c] : {std::tuple(1, 2, 3), std::tuple(3, 1, 2), std::tuple(2, 3, 1)}) {
        EXPECT_EQ(1, MathUtils::min(a, b, c));
        EXPECT_EQ(3, MathUtils::max(a, b, c));
    }
}

TEST(MathUtils, getClosestTakesTheNearerAndTheSecondOnATie) {
    EXPECT_EQ(20, MathUtils::getClosest(10, 20, 15));
    EXPECT_EQ(10, MathUtils::getClosest(10, 20, 14));
    EXPECT_EQ(20, MathUtils::getClosest(10, 20, 16));
}
