// SPDX-License-Identifier: MIT
// The table of angles, the searches and the small integer functions give their stated values.
#include "Math.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>

namespace {

constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int32_t kMax = std::numeric_limits<int32_t>::max();

class MathTables : public testing::Test {
protected:
    ~MathTables() override { Math::dispose(); }
};

/// The cosine of an angle in the first quarter, worked out in another way than the table.
int32_t quarter(int32_t degrees) {
    static const std::map<int32_t, int32_t> odd = {{7, 9926},  {31, 8571}, {35, 8191},
                                                   {39, 7772}, {77, 2249}, {89, 174}};
    const auto found = odd.find(degrees);
    const long double turn = std::acos(-1.0L) / 180;
    return found != odd.end()
               ? found->second
               : static_cast<int32_t>(std::floor(10000 * std::cos(degrees * turn) + 0.5L));
}

/// Cosine of any angle, reached in steps of a quarter turn.
int32_t slowCos(int32_t degrees) {
    int32_t turned = degrees;
    while (turned < 0) {
        turned += 360;
    }
    while (turned >= 360) {
        turned -= 360;
    }
    if (turned > 180) {
        turned = 360 - turned;
    }
    return turned <= 90 ? quarter(turned) : -quarter(180 - turned);
}

}  // namespace

TEST_F(MathTables, cosineHitsItsLandmarks) {
    EXPECT_EQ(0, Math::cos(-90));
    EXPECT_EQ(-10000, Math::cos(180));
    EXPECT_EQ(5000, Math::sin(30));
    EXPECT_EQ(10000, Math::cos(0));
    EXPECT_EQ(0, Math::cos(90));
    EXPECT_EQ(0, Math::cos(270));
}

TEST_F(MathTables, sixCosinesAreOdd) {
    EXPECT_EQ(9926, Math::cos(7));
    EXPECT_EQ(8571, Math::cos(31));
    EXPECT_EQ(8191, Math::cos(35));
    EXPECT_EQ(7772, Math::cos(39));
    EXPECT_EQ(2249, Math::cos(77));
    EXPECT_EQ(174, Math::cos(89));
    for (const int32_t degrees : {7, 31, 35, 39, 77, 89}) {
        const double exact = 10000 * std::cos(degrees * std::acos(-1.0) / 180);
        EXPECT_NE(std::lround(exact), Math::cos(degrees)) << degrees;
    }
}

TEST_F(MathTables, everyAngleOfThreeTurnsHasItsCosineAndSine) {
    for (int32_t degrees = -540; degrees <= 540; degrees++) {
        ASSERT_EQ(slowCos(degrees), Math::cos(degrees)) << degrees;
        ASSERT_EQ(slowCos(90 - degrees), Math::sin(degrees)) << degrees;
    }
}

TEST_F(MathTables, theLargestAnglesAreReducedToo) {
    EXPECT_EQ(Math::cos(127), Math::cos(kMax));   // 2147483647 = 5965232 * 360 + 127
    EXPECT_EQ(Math::cos(-128), Math::cos(kMin));  // -2147483648 = -5965232 * 360 - 128
}

TEST_F(MathTables, tangentsAreWholeQuotients) {
    EXPECT_EQ(1, Math::tg(45));
    EXPECT_EQ(-1, Math::tg(-45));
    EXPECT_EQ(57, Math::tg(89));  // 9998 / 174
    EXPECT_EQ(0, Math::tg(30));   // 5000 / 8660
    EXPECT_EQ(1, Math::ctg(45));
    EXPECT_EQ(57, Math::ctg(1));
    EXPECT_EQ(-57, Math::ctg(179));
}

TEST_F(MathTables, tangentsWithoutADivisorAreZero) {
    EXPECT_EQ(0, Math::tg(90));
    EXPECT_EQ(0, Math::tg(-90));
    EXPECT_EQ(0, Math::ctg(0));
    EXPECT_EQ(0, Math::ctg(180));
}

TEST_F(MathTables, arcCosineFindsTheAngle) {
    EXPECT_EQ(60, Math::arccos(5000));
    EXPECT_EQ(180, Math::arccos(-10000));
    EXPECT_EQ(0, Math::arccos(10000));
    EXPECT_EQ(90, Math::arccos(0));
    EXPECT_EQ(120, Math::arccos(-5000));
    EXPECT_EQ(30, Math::arcsin(5000));
    EXPECT_EQ(-90, Math::arcsin(-10000));
}

TEST_F(MathTables, arcCosineOutsideItsRangeTakesTheNearestEnd) {
    EXPECT_EQ(0, Math::arccos(10001));
    EXPECT_EQ(0, Math::arccos(kMax));
    EXPECT_EQ(180, Math::arccos(-kMax));
    EXPECT_EQ(180, Math::arccos(kMin));
}

TEST_F(MathTables, arcCosineTakesTheNearestAngleForEveryValue) {
    for (int32_t value = 0; value <= 10000; value++) {
        int32_t nearest = 0;
        for (int32_t degrees = 1; degrees <= 90; degrees++) {
            if (std::abs(quarter(degrees) - value) < std::abs(quarter(nearest) - value)) {
                nearest = degrees;
            }
        }
        ASSERT_EQ(nearest, Math::arccos(value)) << value;
        if (value > 0) {
            ASSERT_EQ(180 - nearest, Math::arccos(-value)) << value;
        }
    }
}

TEST_F(MathTables, theTableComesBackAfterItWasDisposedOf) {
    EXPECT_EQ(5000, Math::cos(60));
    Math::dispose();
    Math::dispose();
    EXPECT_EQ(5000, Math::cos(60));
}

TEST(Math, searchesUpwardsAndDownwards) {
    const std::array<int32_t, 5> up = {-7, 0, 3, 10, 11};
    const std::array<int32_t, 5> down = {11, 10, 3, 0, -7};
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(i, Math::search(up.data(), 0, 4, up[static_cast<size_t>(i)], true));
        EXPECT_EQ(i, Math::search(down.data(), 0, 4, down[static_cast<size_t>(i)], false));
        EXPECT_EQ(i, Math::search2(up.data(), 0, 4, up[static_cast<size_t>(i)], true));
        EXPECT_EQ(i, Math::search2(down.data(), 0, 4, down[static_cast<size_t>(i)], false));
    }
    for (const int32_t missing : {-8, 1, 4, 12}) {
        EXPECT_EQ(-1, Math::search(up.data(), 0, 4, missing, true)) << missing;
        EXPECT_EQ(-1, Math::search(down.data(), 0, 4, missing, false)) << missing;
    }
    EXPECT_EQ(-1, Math::search(up.data(), 3, 2, 10, true));
    EXPECT_EQ(-1, Math::search(up.data(), 0, 2, 10, true));
}

TEST(Math, nearSearchTakesTheUpperOnlyIfStrictlyNearer) {
    const std::array<int32_t, 3> up = {0, 10, 21};
    EXPECT_EQ(0, Math::search2(up.data(), 0, 2, 5, true));
    EXPECT_EQ(1, Math::search2(up.data(), 0, 2, 6, true));
    EXPECT_EQ(1, Math::search2(up.data(), 0, 2, 15, true));
    EXPECT_EQ(2, Math::search2(up.data(), 0, 2, 16, true));
    const std::array<int32_t, 2> down = {10, 0};
    EXPECT_EQ(0, Math::search2(down.data(), 0, 1, 5, false));
    EXPECT_EQ(1, Math::search2(down.data(), 0, 1, 4, false));
    EXPECT_EQ(1, Math::search2(down.data(), 1, 1, 99, false));
    EXPECT_EQ(2, Math::search2(up.data(), 2, 1, 5, true));  // an empty range
}

TEST(Math, nearSearchBearsTheLargestDistances) {
    const std::array<int32_t, 2> wide = {kMin, kMax};
    EXPECT_EQ(1, Math::search2(wide.data(), 0, 1, 0, true));
    EXPECT_EQ(0, Math::search2(wide.data(), 0, 1, -1, true));
}

TEST(Math, smallHelpersTreatTheEndsRight) {
    EXPECT_EQ(5, Math::abs(-5));
    EXPECT_EQ(5, Math::abs(5));
    EXPECT_EQ(kMin, Math::abs(kMin));
    EXPECT_EQ(-3, Math::min(-3, 2));
    EXPECT_EQ(2, Math::max(-3, 2));
    EXPECT_EQ(1.5, Math::sqrt(2.25));
}
