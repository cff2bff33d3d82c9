// SPDX-License-Identifier: MIT
// The phone's texts, numbers and lists work as their header says.
#include "OspBase.h"

#include <gtest/gtest.h>

using Osp::Base::String;

TEST(OspString, keepsSixteenBitCharacters) {
    const String text("h\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    ASSERT_EQ(5, text.GetLength());
    EXPECT_EQ(0xE9, text[1]);
    EXPECT_EQ(0x20AC, text[2]);
    EXPECT_EQ(0xD83D, text[3]);
    EXPECT_EQ(0xDE00, text[4]);
    EXPECT_EQ("h\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", text.ToUtf8());
}

TEST(OspString, damagedBytesBecomeReplacementCharacters) {
    EXPECT_EQ(String(u"\uFFFDa"), String("\xFF"
                                         "a"));
    EXPECT_EQ(String(u"\uFFFD"), String("\xE2\x82"));
}

TEST(OspString, comparesStartsAndEnds) {
    const String name("rec_00001.wav");
    EXPECT_TRUE(name.StartsWith("rec_", 0));
    EXPECT_TRUE(name.StartsWith("00001", 4));
    EXPECT_FALSE(name.StartsWith("rec_00001.wav and more", 0));
    EXPECT_TRUE(name.EndsWith(".wav"));
    EXPECT_FALSE(String("wav").EndsWith(".wav"));
    EXPECT_FALSE(name.StartsWith("rec_", -1));
    EXPECT_FALSE(name.StartsWith("", 14));
}

TEST(OspString, appendsAndCuts) {
    String text("n = ");
    text.Append(-42);
    text.Append(char16_t{'!'});
    EXPECT_EQ(String("n = -42!"), text);
    EXPECT_EQ(String("-42"), text.SubString(4, 3));
    EXPECT_EQ(String("!"), text.SubString(7));
    EXPECT_EQ(String(), text.SubString(8, 1));
    text.Insert(u'0', 4);
    EXPECT_EQ(String("n = 0-42!"), text);
}

TEST(OspArrayList, deletesItsObjectsOnlyWhenTold) {
    Osp::Base::Collection::ArrayList list;
    list.Construct(10);
    String onStack("kept");
    list.Add(onStack);
    EXPECT_EQ(1, list.GetCount());
    EXPECT_EQ(&onStack, list.GetAt(0));
    EXPECT_EQ(nullptr, list.GetAt(1));
    list.RemoveAll(false);
    list.Add(*new String("gone"));
    list.RemoveAll(true);
    EXPECT_EQ(0, list.GetCount());
}
