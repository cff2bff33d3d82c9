// SPDX-License-Identifier: MIT
// Texts are broken into rows at spaces and slashes.
#include "TextRows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

/// Every character is one pixel wide.
int32_t widthOf(const std::string& utf8) {
    int32_t width = 0;
    for (const char byte : utf8) {
        width += (static_cast<unsigned char>(byte) & 0xC0) == 0x80 ? 0 : 1;
    }
    return width;
}

Rows wrap(const std::string& text, int32_t width, size_t maxRows) {
    return TextRows::wrap(text, width, width, maxRows, widthOf);
}

}  // namespace

TEST(TextRows, aTextThatFitsIsOneRow) {
    EXPECT_EQ(Rows{"one two"}, wrap("one two", 7, 3));
    EXPECT_EQ(Rows{}, wrap("", 7, 3));
    EXPECT_EQ(Rows{}, wrap("  ", 7, 3));
}

TEST(TextRows, rowsBreakAtSpaces) {
    EXPECT_EQ((Rows{"one two", "three"}), wrap("one two three", 8, 3));
    EXPECT_EQ((Rows{"one two", "three"}), wrap("one two three", 7, 3));
}

TEST(TextRows, pathsBreakAfterTheirSlashes) {
    EXPECT_EQ((Rows{"Saved: ~/Music/", "rec.wav"}), wrap("Saved: ~/Music/rec.wav", 17, 3));
}

TEST(TextRows, onlyPathsBreakAfterSlashes) {
    EXPECT_EQ((Rows{"Cut short:", "Input/output error"}),
              wrap("Cut short: Input/output error", 18, 3));
    EXPECT_EQ((Rows{"~/Music/", "Murmelo/", "rec_00003.wav"}),
              wrap("~/Music/Murmelo/rec_00003.wav", 14, 3));
}

TEST(TextRows, theSignOfTheHomeFolderStaysWithItsPath) {
    EXPECT_EQ((Rows{"Saved:", "~/Music/", "rec.wav"}), wrap("Saved: ~/Music/rec.wav", 10, 3));
    EXPECT_EQ((Rows{"~/Mu", "sic"}), wrap("~/Music", 4, 3));
}

TEST(TextRows, aLastWordGetsCompanyFromARowThatCanSpareOne) {
    EXPECT_EQ((Rows{"one two", "three four"}), wrap("one two three four", 13, 3));
    EXPECT_EQ((Rows{"one", "two three", "four five"}),
              TextRows::wrap("one two three four five", 3, 14, 3, widthOf));
    EXPECT_EQ((Rows{"äöü äöü", "äöü äöü"}), wrap("äöü äöü äöü äöü", 11, 2));
    EXPECT_EQ((Rows{"It is in", "~/Music/rec.wav"}), wrap("It is in ~/Music/rec.wav", 17, 3));
}

TEST(TextRows, aLastWordStaysAloneWhereNoOtherFitsBesideIt) {
    EXPECT_EQ((Rows{"one two three", "fourth word"}), wrap("one two three fourth word", 13, 3));
    EXPECT_EQ((Rows{"a b cccccc", "dddd"}), wrap("a b cccccc dddd", 10, 3));
    EXPECT_EQ((Rows{"one two", "three"}), wrap("one two three", 9, 3))
        << "it would leave one alone";
    EXPECT_EQ((Rows{"1\u00a02 3", "4"}), wrap("1\u00a02 3 4", 5, 3)) << "two words above";
    EXPECT_EQ((Rows{"one two three", "four five se…"}),
              wrap("one two three four five seven", 13, 2))
        << "the last row is full";
}

TEST(TextRows, aWordTooLongIsCutWhereTheRowEnds) {
    EXPECT_EQ((Rows{"abcde", "fgh"}), wrap("abcdefgh", 5, 3));
    EXPECT_EQ((Rows{"äöü", "äöü"}), wrap("äöüäöü", 3, 3));
}

TEST(TextRows, whatDoesNotFitEndsInAnEllipsis) {
    EXPECT_EQ((Rows{"one", "two…"}), wrap("one two three four", 4, 2));
    EXPECT_EQ((Rows{"äö…"}), wrap("äöüäöü", 3, 1));
}

TEST(TextRows, aPathTooLongLosesItsMiddle) {
    const auto cut = [](const std::string& path, int32_t widthPx) {
        return TextRows::cutPath(path, widthPx, widthOf);
    };
    EXPECT_EQ("~/Music/rec.wav", cut("~/Music/rec.wav", 15));
    EXPECT_EQ("~/Mus…/rec.wav", cut("~/Music/rec.wav", 14));
    EXPECT_EQ("~/M…/rec.wav", cut("~/Music/rec.wav", 12));
    EXPECT_EQ("~/….wav", cut("~/Music/rec.wav", 7));  // two thirds: four of the name
    EXPECT_EQ("ä/Ö…/üäö", cut("ä/Ö/Ü/Ä/üäö", 8));
    EXPECT_EQ("abc…ghijkl", cut("abcdefghijkl", 10));
    EXPECT_EQ("", cut("", 5));
}

TEST(TextRows, theFirstRowMayBeNarrower) {
    EXPECT_EQ((Rows{"one", "two three", "four"}),
              TextRows::wrap("one two three four", 5, 9, 3, widthOf));
}

TEST(TextRows, aRowOfNoWidthStillTakesACharacter) {
    EXPECT_EQ((Rows{"a", "b"}), wrap("ab", 0, 3));
}
