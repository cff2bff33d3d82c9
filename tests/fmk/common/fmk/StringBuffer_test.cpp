// SPDX-License-Identifier: MIT
// The text buffer grows, appends, inserts and deletes as it states.
#include "Integer.h"
#include "OspBase.h"
#include "StringBuffer.h"

#include <gtest/gtest.h>

#include <memory>

using Osp::Base::String;

namespace {

String textOf(StringBuffer& buffer) {
    const std::unique_ptr<String> text(buffer.toString());
    return *text;
}

}  // namespace

TEST(StringBuffer, startsWithTheStatedCapacity) {
    StringBuffer plain;
    EXPECT_EQ(16, plain.capacity());
    EXPECT_EQ(0, plain.length());
    EXPECT_EQ(3, StringBuffer(3).capacity());
    const String text(u"\u20ACuro");
    StringBuffer fromText(&text);
    EXPECT_EQ(4, fromText.capacity());
    EXPECT_EQ(text, textOf(fromText));
    StringBuffer fromUtf8("caf\xC3\xA9");
    EXPECT_EQ(4, fromUtf8.capacity());
    EXPECT_EQ(String(u"caf\u00E9"), textOf(fromUtf8));
}

TEST(StringBuffer, growsToTwiceAndTwoMoreOrToTheNeed) {
    StringBuffer buffer(3);
    buffer.append("abc");
    EXPECT_EQ(3, buffer.capacity());
    buffer.append(u'd');
    EXPECT_EQ(8, buffer.capacity());
    buffer.ensureCapacity(8);
    EXPECT_EQ(8, buffer.capacity());
    buffer.ensureCapacity(100);
    EXPECT_EQ(100, buffer.capacity());
    EXPECT_EQ(String("abcd"), textOf(buffer));
}

TEST(StringBuffer, appendsEveryKindOfText) {
    StringBuffer buffer;
    const String text("text ");
    Integer object(5);
    buffer.append(&text)->append("utf8 ")->append(u'c')->append(u" wide ")->append(u"range", 1, 3);
    buffer.append(int32_t{-42})->append(true)->append(false)->append(&object);
    EXPECT_EQ(String("text utf8 c wide ang-42truefalseobject"), textOf(buffer));
}

TEST(StringBuffer, fractionsAndNothingAddNothing) {
    StringBuffer buffer("x");
    buffer.append(1.5)->append(2.5F);
    buffer.append(static_cast<String*>(nullptr))->append(static_cast<const char*>(nullptr));
    buffer.append(static_cast<GnoObject*>(nullptr))->append(static_cast<char16_t*>(nullptr));
    EXPECT_EQ(String("x"), textOf(buffer));
}

TEST(StringBuffer, insertsCharactersOnly) {
    StringBuffer buffer("ad");
    buffer.insert(1, u"bcx", 2);
    buffer.insert(0, u'<')->insert(5, u'>');
    EXPECT_EQ(String("<abcd>"), textOf(buffer));
    const String text("no");
    buffer.insert(1, &text)->insert(1, "no")->insert(1, u"no")->insert(1, int32_t{7});
    buffer.insert(1, true)->insert(1, 1.5)->insert(1, 1.5F)->insert(1, &buffer);
    EXPECT_EQ(String("<abcd>"), textOf(buffer));
}

TEST(StringBuffer, insertsNothingOutsideTheText) {
    StringBuffer buffer("ab");
    buffer.insert(-1, u'x')->insert(3, u'x')->insert(1, u"x", -1);
    EXPECT_EQ(String("ab"), textOf(buffer));
}

TEST(StringBuffer, readsCharactersAndZeroOutside) {
    StringBuffer buffer("ab");
    EXPECT_EQ(u'b', buffer.charAt(1));
    EXPECT_EQ(u'\0', buffer.charAt(2));
    EXPECT_EQ(u'\0', buffer.charAt(-1));
}

TEST(StringBuffer, itsLengthCanBeSetBothWays) {
    StringBuffer buffer("abcd");
    buffer.setLength(2);
    EXPECT_EQ(String("ab"), textOf(buffer));
    buffer.setLength(3);
    EXPECT_EQ(3, buffer.length());
    EXPECT_EQ(u'\0', buffer.charAt(2));  // the old c is gone
    buffer.setLength(-5);
    EXPECT_EQ(0, buffer.length());
}

TEST(StringBuffer, deletesARangeAsFarAsThereIsText) {
    StringBuffer buffer("abcdef");
    buffer.deleteFrom(1, 3);
    EXPECT_EQ(String("adef"), textOf(buffer));
    buffer.deleteFrom(2, 100);
    EXPECT_EQ(String("ad"), textOf(buffer));
    buffer.deleteFrom(1, 1)->deleteFrom(2, 1)->deleteFrom(5, 9);
    EXPECT_EQ(String("ad"), textOf(buffer));
    buffer.deleteFrom(-3, 1);
    EXPECT_EQ(String("d"), textOf(buffer));
}
