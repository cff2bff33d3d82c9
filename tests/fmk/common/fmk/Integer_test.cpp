// SPDX-License-Identifier: MIT
// Numbers become texts and texts numbers, even with characters that are no digits.
#include "Integer.h"
#include "OspBase.h"
#include "Short.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using Osp::Base::String;

namespace {

String taken(String* text) {
    const std::unique_ptr<String> owner(text);
    return *owner;
}

int32_t parsed(const char* digits) {
    String text(digits);
    return Integer::parseInt(&text);
}

}  // namespace

TEST(Integer, becomesDecimalText) {
    EXPECT_EQ(String("-42"), taken(Integer::toString(-42)));
    EXPECT_EQ(String("0"), taken(Integer::toString(0)));
    EXPECT_EQ(String("-2147483648"), taken(Integer::toString(std::numeric_limits<int32_t>::min())));
}

TEST(Integer, becomesHexadecimalTextWithoutSign) {
    EXPECT_EQ(String("0"), taken(Integer::toHexString(0)));
    EXPECT_EQ(String("cafe"), taken(Integer::toHexString(0xCAFE)));
    EXPECT_EQ(String("ffffffff"), taken(Integer::toHexString(-1)));
}

TEST(Integer, digitsBecomeANumber) {
    EXPECT_EQ(42, parsed("0042"));
    EXPECT_EQ(0, parsed(""));
    EXPECT_EQ(2147483647, parsed("2147483647"));
}

TEST(Integer, anythingButDigitsBecomesAMeaninglessNumber) {
    EXPECT_EQ(-29, parsed("-1"));                  // '-' is three below '0': -3 * 10 + 1
    EXPECT_EQ(170, parsed("A0"));                  // 'A' is 17 above '0'
    EXPECT_EQ(1410065408, parsed("10000000000"));  // 10^10 less twice 2^32
}

TEST(Integer, equalsByValueAndKind) {
    Integer a(7);
    Integer b(7);
    Integer c(8);
    Short d(7);
    EXPECT_TRUE(a.equals(&b));
    EXPECT_FALSE(a.equals(&c));
    EXPECT_FALSE(a.equals(&d));
    EXPECT_FALSE(a.equals(nullptr));
}

TEST(Integer, givesItsValueInEveryWidth) {
    const Integer number(0x12348182);
    EXPECT_EQ(0x12348182, number.intValue());
    EXPECT_EQ(0x12348182, number.longValue());
    EXPECT_EQ(-32382, number.shortValue());  // 0x8182 - 0x10000
    EXPECT_EQ(-126, number.byteValue());     // 0x82 - 0x100
    EXPECT_EQ(305430914.0, number.doubleValue());
    EXPECT_EQ(16777216.0F, Integer(16777217).floatValue());
}

TEST(Short, becomesTextAndBack) {
    EXPECT_EQ(String("-32768"), taken(Short::toString(-32768)));
    EXPECT_EQ(String("7fff"), taken(Short::toHexString(0x7FFF)));
    EXPECT_EQ(String("ffffffff"), taken(Short::toHexString(-1)));
    String digits("0042");
    EXPECT_EQ(42, Short::parseShort(&digits));
    String tooMany("65537");
    EXPECT_EQ(1, Short::parseShort(&tooMany));
}

TEST(Short, equalsByValueAndKind) {
    Short a(7);
    Short b(7);
    Short c(8);
    Integer d(7);
    EXPECT_TRUE(a.equals(&b));
    EXPECT_FALSE(a.equals(&c));
    EXPECT_FALSE(a.equals(&d));
    EXPECT_FALSE(a.equals(nullptr));
}

TEST(Short, givesItsValueInEveryWidth) {
    const Short number(-300);
    EXPECT_EQ(-300, number.intValue());
    EXPECT_EQ(-300, number.longValue());
    EXPECT_EQ(-300, number.shortValue());
    EXPECT_EQ(-44, number.byteValue());  // -300 + 256
    EXPECT_EQ(-300.0F, number.floatValue());
    EXPECT_EQ(-300.0, number.doubleValue());
}
