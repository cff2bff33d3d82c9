// SPDX-License-Identifier: MIT
// Bitmap fonts are made with every character, and unusable outlines are refused.
#include "AppImage.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "FontMaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

const std::string kFont = MURMELO_TEST_FONT;

std::unique_ptr<BitMapFont> made(double sizePx, FontMaker::Hinting hinting) {
    FontMaker maker;
    std::unique_ptr<BitMapFont> font = maker.make(kFont, sizePx, "", hinting);
    EXPECT_NE(nullptr, font) << maker.error();
    return font;
}

/// Rows of the glyph's bitmap, "#" where more than half is covered.
std::vector<std::string> rows(BitMapCharacter* glyph) {
    std::vector<std::string> lines;
    AppImage image(glyph->w, glyph->h, 0);
    glyph->draw(&image, 0, 0, 0xFFFFFFFF);
    for (int32_t y = 0; y < glyph->h; y++) {
        std::string line;
        for (int32_t x = 0; x < glyph->w; x++) {
            line += image.get(x, y) >> 24 > 127 ? '#' : '.';
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

TEST(FontMaker, hasEveryCharacterOfTheLatinSetsAndTheTypography) {
    const std::vector<char16_t> all = FontMaker::characters();
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all.end(), std::adjacent_find(all.begin(), all.end()));
    // 95 of ASCII, 96 of ISO 8859-1, 8 more of 8859-15
    const std::u16string typography =
        u"\u2013\u2014\u2018\u2019\u201A\u201C\u201D\u201E\u2022\u2026"
        u"\u2039\u203A";
    EXPECT_EQ(95U + 96U + 8U + typography.size(), all.size());
    for (const char16_t c :
         std::u16string(u"AZaz09~\u00A0\u00E9\u00FF\u20AC\u0160\u017E\u0152") + typography) {
        EXPECT_TRUE(std::binary_search(all.begin(), all.end(), c)) << static_cast<int>(c);
    }
}

TEST(FontMaker, aMadeFontHasItsCharactersAndMeasures) {
    for (const auto hinting : {FontMaker::Hinting::kNative, FontMaker::Hinting::kAuto,
                               FontMaker::Hinting::kLight, FontMaker::Hinting::kNone}) {
        const std::unique_ptr<BitMapFont> font = made(15, hinting);
        EXPECT_EQ("DejaVu Sans", font->getOriginalFontName()->ToUtf8());
        EXPECT_EQ(15.0F, font->getOriginalFontSize());
        EXPECT_GE(font->getLineHeight(), 15);
        EXPECT_LE(font->getLineHeight(), 20);
        EXPECT_EQ(static_cast<int32_t>(FontMaker::characters().size()) + 1, font->getNumChars());
        EXPECT_EQ(font->getChar(' ')->advanceWidth, font->getMissingChar()->advanceWidth);
        EXPECT_EQ(nullptr, font->getChar(0xA0)->pixels);
        EXPECT_LT(font->getChar('i')->advanceWidth, font->getChar('m')->advanceWidth);
        EXPECT_LT(font->getChar('g')->ofsY, 0);
        EXPECT_GT(font->getChar('g')->ofsY + font->getChar('g')->h, 0);  // hangs below the line
    }
}

TEST(FontMaker, hintedStemsAreSharp) {
    const std::unique_ptr<BitMapFont> font = made(15, FontMaker::Hinting::kNative);
    BitMapCharacter* letter = font->getChar('H');
    EXPECT_EQ(0, letter->ofsY + letter->h);  // stands on the baseline
    const std::vector<std::string> lines = rows(letter);
    for (const std::string& line : lines) {
        EXPECT_EQ('#', line.front());
        EXPECT_EQ('#', line.back());
        EXPECT_EQ(line, std::string(line.rbegin(), line.rend()));
    }
    EXPECT_EQ(1, std::count(lines.begin(), lines.end(), std::string(lines[0].size(), '#')));
}

TEST(FontMaker, noGlyphHasEmptyEdges) {
    const std::unique_ptr<BitMapFont> font = made(13, FontMaker::Hinting::kNone);
    for (int32_t i = 0; i < font->getNumChars(); i++) {
        BitMapCharacter* glyph = font->getCharAtIndex(i);
        if (glyph->pixels == nullptr) {
            continue;
        }
        AppImage image(glyph->w, glyph->h, 0);
        glyph->draw(&image, 0, 0, 0xFFFFFFFF);
        uint32_t first = 0;
        uint32_t last = 0;
        for (int32_t y = 0; y < glyph->h; y++) {
            first |= image.get(0, y);
            last |= image.get(glyph->w - 1, y);
        }
        EXPECT_NE(0U, first) << glyph->codePoint;
        EXPECT_NE(0U, last) << glyph->codePoint;
    }
}

TEST(FontMaker, theNameCanBeGiven) {
    FontMaker maker;
    const auto font = maker.make(kFont, 13, "Murmel", FontMaker::Hinting::kNative);
    EXPECT_EQ("Murmel", font->getOriginalFontName()->ToUtf8());
}

TEST(FontMaker, whatCannotBeMadeIsExplained) {
    FontMaker maker;
    EXPECT_EQ(nullptr, maker.make("/nowhere.ttf", 15, "", FontMaker::Hinting::kNative));
    EXPECT_EQ("/nowhere.ttf is not a font that can be read", maker.error());
    for (const double size : {0.0, -1.0, 3.9, 101.0, std::nan("")}) {
        EXPECT_EQ(nullptr, maker.make(kFont, size, "", FontMaker::Hinting::kNative));
        EXPECT_EQ("the size must lie between 4 and 100 pixels", maker.error());
    }
}
