// SPDX-License-Identifier: MIT
// Numbers and characters are converted to bytes and back, within their arrays.
#include "ArrFunc.h"
#include "Calendar.h"
#include "Random.h"
#include "Utils.h"

#include <gtest/gtest.h>

TEST(Utils, putsNumbersMostSignificantByteFirst) {
    auto* bytes = newArray<signed char>(6);
    EXPECT_EQ(4, Utils::putInt(-2147483389, bytes, 1));  // 0x80000103
    EXPECT_EQ(0, bytes[0]);
    EXPECT_EQ(-128, bytes[1]);
    EXPECT_EQ(0, bytes[2]);
    EXPECT_EQ(1, bytes[3]);
    EXPECT_EQ(3, bytes[4]);
    EXPECT_EQ(0, bytes[5]);
    EXPECT_EQ(-2147483389, Utils::getInt(bytes, 1));
    deleteArrFunc(bytes);
}

TEST(Utils, numbersThatDoNotFitAreLeftOut) {
    auto* bytes = newArray<signed char>(6);
    EXPECT_EQ(4, Utils::putInt(-1, bytes, 3));
    EXPECT_EQ(4, Utils::putInt(-1, bytes, -1));
    EXPECT_EQ(4, Utils::putInt(-1, nullptr, 0));
    for (int32_t i = 0; i < 6; i++) {
        EXPECT_EQ(0, bytes[i]);
        bytes[i] = -1;
    }
    EXPECT_EQ(0, Utils::getInt(bytes, 3));
    EXPECT_EQ(0, Utils::getInt(bytes, -1));
    EXPECT_EQ(-1, Utils::getInt(bytes, 2));
    deleteArrFunc(bytes);
}

TEST(Utils, charactersBecomeBytesAndBytesCharacters) {
    auto* characters = newArray<char16_t>(3);
    characters[1] = u'\u00E9';
    characters[2] = u'\u20AC';
    auto* bytes = Utils::charToByteArray(characters, 1, 100);
    ASSERT_EQ(2, length(bytes));
    EXPECT_EQ(-23, bytes[0]);  // 0xE9 - 0x100
    EXPECT_EQ(-84, bytes[1]);  // 0xAC - 0x100
    auto* back = Utils::byteToCharArray(bytes, 0, 1);
    ASSERT_EQ(1, length(back));
    EXPECT_EQ(u'\u00E9', back[0]);
    deleteArrFunc(back);
    deleteArrFunc(bytes);
    deleteArrFunc(characters);
}

TEST(Random, isAlwaysZero) {
    EXPECT_EQ(0, Random().nextInt());
    Random seeded(12345);
    EXPECT_EQ(0, seeded.nextInt());
    EXPECT_EQ(0, seeded.nextInt());
}

TEST(Calendar, isOneInstanceThatKnowsNoDate) {
    Calendar* calendar = Calendar::getInstance();
    EXPECT_EQ(calendar, Calendar::getInstance());
    calendar->set(1, 2026);
    EXPECT_EQ(-1, calendar->get(1));
    Calendar::dispose();
    Calendar::dispose();
    EXPECT_EQ(-1, Calendar::getInstance()->get(0));
    Calendar::dispose();
}
