// SPDX-License-Identifier: MIT
// Counted arrays know their length, start at zero and are freed as a whole.
#include "ArrFunc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

TEST(ArrFunc, headerWordStandsDirectlyBeforeElement0) {
    auto* array = newArray<int32_t>(5);
    EXPECT_EQ(5U, reinterpret_cast<uint32_t*>(array)[-1]);
    deleteArrFunc(array);
}

TEST(ArrFunc, element0IsAlignedAndTheMemoryIsZero) {
    auto* array = newArray<double>(33);
    EXPECT_EQ(0U, reinterpret_cast<uintptr_t>(array) % 16);
    for (int32_t i = 0; i < 33; i++) {
        EXPECT_EQ(0.0, array[i]);
    }
    deleteArrFunc(array);
}

TEST(ArrFunc, countIsBytesDividedByElementSize) {
    void* array = newArrFunc(11, 2, __FILE__, __LINE__);
    EXPECT_EQ(5, length(array));
    deleteArrFunc(array);
}

TEST(ArrFunc, lengthOfNullIsZeroAndDeletingNullDoesNothing) {
    EXPECT_EQ(0, length(nullptr));
    deleteArrFunc(nullptr);
}

TEST(ArrFunc, twoLevelsHaveOneInnerArrayForEachFourBytes) {
    auto** rows = static_cast<int16_t**>(newArrFunc(3 * 4, 7 * 2, 2, __FILE__, __LINE__));
    ASSERT_EQ(3, length(rows));
    EXPECT_EQ(0x1000003U, reinterpret_cast<uint32_t*>(rows)[-1]);
    for (int32_t i = 0; i < 3; i++) {
        EXPECT_EQ(7, length(rows[i]));
    }
    deleteArrFunc(rows);  // the leak checker sees that the inner arrays go too
}

TEST(ArrFunc, threeLevelsNest) {
    auto*** planes =
        static_cast<int32_t***>(newArrFunc(2 * 4, 3 * 4, 4 * 4, 4, __FILE__, __LINE__));
    ASSERT_EQ(2, length(planes));
    ASSERT_EQ(3, length(planes[1]));
    EXPECT_EQ(4, length(planes[1][2]));
    deleteArrFunc(planes);
}

TEST(ArrFunc, lengthIgnoresTheMark) {
    auto** rows = newArray<int32_t*>(2);
    markAsMultiDimensionalArray(rows);
    EXPECT_EQ(2, length(rows));
    rows[0] = newArray<int32_t>(1);
    deleteArrFunc(rows);
}

TEST(ArrFunc, rangesAreCutToTheArray) {
    auto* array = newArray<int16_t>(5);
    EXPECT_EQ(3, elementsInRange(array, 1, 3));
    EXPECT_EQ(4, elementsInRange(array, 1, 2147483647));
    EXPECT_EQ(0, elementsInRange(array, 5, 1));
    EXPECT_EQ(0, elementsInRange(array, -1, 3));
    EXPECT_EQ(0, elementsInRange(array, -2147483647 - 1, 3));
    EXPECT_EQ(0, elementsInRange(array, 0, -1));
    EXPECT_EQ(0, elementsInRange(nullptr, 0, 1));
    deleteArrFunc(array);
}

TEST(ArrFunc, arrayToFillHasItsLengthAndAlignment) {
    for (const int32_t count : {0, 1, 160000}) {
        int32_t* array = newArrayToFill<int32_t>(count);
        EXPECT_EQ(count, length(array));
        EXPECT_EQ(0U, reinterpret_cast<uintptr_t>(array) % 16);
        std::fill_n(array, count, -1);
        EXPECT_EQ(count, length(array));
        deleteArrFunc(array);
    }
}
