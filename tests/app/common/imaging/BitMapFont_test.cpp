// SPDX-License-Identifier: MIT
// Fonts hold, read, write, measure and draw their characters, and survive damaged files.
#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using Osp::Base::String;

namespace {

using FontPointer = std::unique_ptr<BitMapFont>;

/// A full rectangle of ink.
BitMapCharacter*
block(int32_t codePoint, int32_t w, int32_t h, int32_t advance, int32_t ofsX, int32_t ofsY) {
    const std::vector<signed char> coverage(static_cast<size_t>(w * h), 15);
    return new BitMapCharacter(codePoint, coverage.data(), w, h, advance, ofsX, ofsY);
}

FontPointer parse(const std::vector<int32_t>& bytes) {
    auto* array = newArray<signed char>(static_cast<int32_t>(bytes.size()));
    for (size_t i = 0; i < bytes.size(); i++) {
        array[i] = static_cast<signed char>(bytes[i]);
    }
    ByteArrayInputStream in(array);
    FontPointer font(BitMapFont::createFrom(&in));
    deleteArrFunc(array);
    return font;
}

std::vector<int32_t> written(BitMapFont& font) {
    ByteArrayOutputStream out;
    EXPECT_TRUE(font.writeTo(&out));
    signed char* array = out.toByteArray();
    std::vector<int32_t> bytes;
    for (int32_t i = 0; i < length(array); i++) {
        bytes.push_back(array[i] & 255);
    }
    deleteArrFunc(array);
    return bytes;
}

std::vector<int32_t> operator+(std::vector<int32_t> a, const std::vector<int32_t>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// magic, version, name "n", size 15.0, line height 17
const std::vector<int32_t> kStart = {'B', 'M', 'F', 1, 0, 1, 'n', 0x41, 0x70, 0, 0, 17};

std::string textOf(GnoObject* object) {
    const std::unique_ptr<String> text(object->toString());
    return text->ToUtf8();
}

int32_t widthOf(BitMapFont& font, const char* text) {
    String string(text);
    return font.getStringWidth(&string);
}

/// Letters of different places: "a" 3 x 4 at (1, -4), "b" 5 x 6 at (-2, -3), "c" 2 x 2 at (0, -2).
class BitMapFontTest : public testing::Test {
protected:
    BitMapFontTest() {
        font.addChar(block('b', 5, 6, 7, -2, -3));
        font.addChar(block('a', 3, 4, 5, 1, -4));
        font.addChar(block('c', 2, 2, 3, 0, -2));
        font.addChar(new BitMapCharacter(' ', 4, 0, 0));
    }

    /// Draws into a new image and compares with the given ink.
    void expectInk(const std::function<void(AppImage*)>& draw,
                   const std::function<bool(int32_t, int32_t)>& isInk) {
        AppImage image(40, 30, 0);
        draw(&image);
        for (int32_t y = 0; y < 30; y++) {
            for (int32_t x = 0; x < 40; x++) {
                ASSERT_EQ(isInk(x, y) ? 0xFF0000FFU : 0U, image.get(x, y)) << x << ", " << y;
            }
        }
    }

    BitMapFont font;
};

bool inBox(int32_t x, int32_t y, int32_t left, int32_t top, int32_t w, int32_t h) {
    return x >= left && x < left + w && y >= top && y < top + h;
}

constexpr uint32_t kBlue = 0xFF0000FF;

}  // namespace

TEST(BitMapFont, aNewFontHoldsOnlyTheMissingCharacter) {
    BitMapFont font;
    EXPECT_EQ("n/a", font.getOriginalFontName()->ToUtf8());
    EXPECT_EQ(10, font.getLineHeight());
    EXPECT_EQ(1, font.getNumChars());
    EXPECT_EQ(10, font.getMaxAbove());
    EXPECT_EQ(0, font.getMaxBelow());
    BitMapCharacter* missing = font.getMissingChar();
    EXPECT_EQ(0, missing->codePoint);
    EXPECT_EQ(10, missing->w);
    EXPECT_EQ(10, missing->h);
    EXPECT_EQ(10, missing->advanceWidth);
    EXPECT_EQ(0, missing->ofsX);
    EXPECT_EQ(-10, missing->ofsY);
}

TEST(BitMapFont, theMissingCharacterIsAHollowSquare) {
    BitMapFont font;
    font.setMissingChar(4);
    BitMapCharacter* missing = font.getMissingChar();
    ASSERT_EQ(2, length(missing->pixels));
    EXPECT_EQ(0xFFFFF00FU, missing->pixels[0]);
    EXPECT_EQ(0xF00FFFFFU, missing->pixels[1]);
    EXPECT_EQ(-4, missing->ofsY);
    EXPECT_EQ(1, font.getNumChars());
}

TEST(BitMapFont, missingCharactersOfOddSizesAreSafe) {
    BitMapFont font;
    for (const int32_t s : {1, 2}) {
        font.setMissingChar(s);
        EXPECT_EQ(s == 1 ? 0xF0000000U : 0xFFFF0000U, font.getMissingChar()->pixels[0]);
    }
    font.setMissingChar(0);
    EXPECT_EQ(nullptr, font.getMissingChar()->pixels);
    font.setMissingChar(-3);
    EXPECT_EQ(-3, font.getMissingChar()->advanceWidth);
    font.setMissingChar(100000);
    EXPECT_EQ(255, font.getMissingChar()->w);
}

TEST_F(BitMapFontTest, maxAboveNeverFallsBelowTheFirstMissingCharacter) {
    font.setLineHeight(12);
    EXPECT_EQ(4, font.getMissingChar()->w);  // as wide as the space
    EXPECT_EQ(10, font.getMaxAbove());
    EXPECT_EQ(3, font.getMaxBelow());
    EXPECT_EQ(13, font.getMaxHeight());
    EXPECT_EQ(12, font.getLineHeight());
}

TEST(BitMapFont, withoutASpaceTheMissingCharacterKeepsItsWidth) {
    BitMapFont font;
    font.setMissingChar(6);
    font.setLineHeight(9);
    EXPECT_EQ(6, font.getMissingChar()->w);
}

TEST(BitMapFont, onlyInkCountsBelowTheLine) {
    BitMapFont font;
    font.addChar(new BitMapCharacter('_', 5, 0, 40));
    EXPECT_EQ(0, font.getMaxBelow());
    font.addChar(block('g', 3, 9, 4, 0, -5));
    EXPECT_EQ(4, font.getMaxBelow());
    font.addChar(block('|', 1, 30, 2, 0, -22));
    EXPECT_EQ(22, font.getMaxAbove());
    EXPECT_EQ(8, font.getMaxBelow());
}

TEST_F(BitMapFontTest, charactersAreSortedAndFound) {
    ASSERT_EQ(5, font.getNumChars());
    const int32_t kOrder[5] = {0, ' ', 'a', 'b', 'c'};
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(kOrder[i], font.getCharAtIndex(i)->codePoint);
        EXPECT_EQ(i, font.getIndexOfCodePoint(kOrder[i]));
        EXPECT_EQ(font.getCharAtIndex(i), font.getChar(kOrder[i]));
        EXPECT_TRUE(font.hasCodePoint(kOrder[i]));
    }
}

TEST_F(BitMapFontTest, unknownCodePointsAreTheMissingCharacter) {
    for (const int32_t codePoint : {-5, 1, 96, 100, 0xFFFF}) {
        EXPECT_EQ(font.getMissingChar(), font.getChar(codePoint)) << codePoint;
        EXPECT_EQ(-1, font.getIndexOfCodePoint(codePoint));
        EXPECT_FALSE(font.hasCodePoint(codePoint));
    }
    EXPECT_EQ(10, widthOf(font, "\xE2\x82\xAC"));
}

TEST_F(BitMapFontTest, aCharacterOfTheSameCodePointReplacesTheOldOne) {
    font.addChar(block('a', 1, 1, 2, 0, -1));
    EXPECT_EQ(5, font.getNumChars());
    EXPECT_EQ(2, font.getChar('a')->advanceWidth);
    font.addChar(font.getChar('a'));  // itself: still there
    EXPECT_EQ(2, font.getChar('a')->advanceWidth);
}

TEST(BitMapFont, blanksLoseTheirBitmapButKeepTheirAdvance) {
    BitMapFont font;
    for (const int32_t codePoint : {10, 32, 160}) {
        font.addChar(block(codePoint, 3, 3, 6, 1, -30));
        EXPECT_EQ(nullptr, font.getChar(codePoint)->pixels);
        EXPECT_EQ(6, font.getChar(codePoint)->advanceWidth);
        EXPECT_EQ(0, font.getChar(codePoint)->w);
    }
    EXPECT_EQ(10, font.getMaxAbove());
}

TEST(BitMapFont, growsPastItsFirstArray) {
    BitMapFont font;
    for (int32_t codePoint = 1000; codePoint > 0; codePoint--) {
        font.addChar(new BitMapCharacter(codePoint, codePoint % 100, 0, 0));
    }
    ASSERT_EQ(1001, font.getNumChars());
    for (int32_t i = 0; i <= 1000; i++) {
        EXPECT_EQ(i, font.getCharAtIndex(i)->codePoint);
    }
}

TEST(BitMapFont, aFileWithoutCharactersHoldsTheMissingOneAndTheLineFeed) {
    const FontPointer font = parse(kStart + std::vector<int32_t>{0, 0});
    EXPECT_EQ("n", font->getOriginalFontName()->ToUtf8());
    EXPECT_EQ(15.0F, font->getOriginalFontSize());
    EXPECT_EQ(17, font->getLineHeight());
    ASSERT_EQ(2, font->getNumChars());
    EXPECT_EQ(0, font->getCharAtIndex(0)->codePoint);
    EXPECT_EQ(10, font->getCharAtIndex(1)->codePoint);
    EXPECT_EQ(0, font->getCharAtIndex(1)->advanceWidth);
    EXPECT_EQ(nullptr, font->getCharAtIndex(1)->pixels);
}

TEST(BitMapFont, aSpaceReadWithABitmapLosesIt) {
    const FontPointer font =
        parse(kStart + std::vector<int32_t>{0, 1, 0, 32, 5, 0, 0, 1, 1, 0xF0, 0, 0, 0});
    EXPECT_EQ(nullptr, font->getChar(32)->pixels);
    EXPECT_EQ(5, font->getChar(32)->advanceWidth);
}

TEST(BitMapFont, magicAndVersionAreNotLookedAt) {
    std::vector<int32_t> bytes = kStart + std::vector<int32_t>{0, 0};
    std::fill(bytes.begin(), bytes.begin() + 4, 99);
    EXPECT_EQ(17, parse(bytes)->getLineHeight());
}

TEST(BitMapFont, aDamagedNameAndATinySizeAreReplaced) {
    const FontPointer font =
        parse({'B', 'M', 'F', 1, 0, 1, 0xFF, 0x3F, 0x7F, 0xFF, 0xFF, 0xF0, 0, 0});
    EXPECT_EQ("n/a", font->getOriginalFontName()->ToUtf8());
    EXPECT_EQ(123.0F, font->getOriginalFontSize());
    EXPECT_EQ(-16, font->getLineHeight());
}

TEST(BitMapFont, sizeOneIsKept) {
    const FontPointer font = parse({'B', 'M', 'F', 1, 0, 0, 0x3F, 0x80, 0, 0, 5, 0, 0});
    EXPECT_EQ(1.0F, font->getOriginalFontSize());
    EXPECT_EQ("", font->getOriginalFontName()->ToUtf8());
}

TEST(BitMapFont, aNegativeCountReadsNothing) {
    const FontPointer font = parse(kStart + std::vector<int32_t>{0xFF, 0xFF, 0, 65, 5, 0, 0, 0, 0});
    EXPECT_EQ(2, font->getNumChars());
}

TEST_F(BitMapFontTest, writingAndReadingGivesTheSameFile) {
    font.setLineHeight(17);
    String name("Gl\xC3\xBChwurm");
    BitMapFont named(&name, 15.5F, 17);
    named.addNewCharactersFrom(&font);
    const std::vector<int32_t> first = written(named);
    const FontPointer again = parse(first);
    EXPECT_EQ("Gl\xC3\xBChwurm", again->getOriginalFontName()->ToUtf8());
    EXPECT_EQ(15.5F, again->getOriginalFontSize());
    EXPECT_EQ(6, again->getNumChars());  // the line feed has come
    const std::vector<int32_t> second = written(*again);
    EXPECT_EQ(written(*parse(second)), second);
    named.addChar(new BitMapCharacter(10, 0, 0, 0));
    EXPECT_EQ(written(named), second);
}

TEST(BitMapFont, theFileHasTheseBytes) {
    String name("n");
    BitMapFont font(&name, 15.0F, 17);
    font.setMissingChar(1);
    const signed char ink[2] = {3, 12};
    font.addChar(new BitMapCharacter(0x20AC, ink, 2, 1, 4, -1, -2));
    EXPECT_EQ(kStart + std::vector<int32_t>({0,    2,                                       //
                                             0,    0,    1, 0,   255, 1, 1, 0xF0, 0, 0, 0,  //
                                             0x20, 0xAC, 4, 255, 254, 2, 1, 0x3C, 0, 0, 0}),
              written(font));
}

TEST_F(BitMapFontTest, everyTruncationOfAFileIsSafe) {
    const std::vector<int32_t> whole = written(font);
    for (size_t n = 0; n < whole.size(); n++) {
        const FontPointer cut =
            parse(std::vector<int32_t>(whole.begin(), whole.begin() + static_cast<int64_t>(n)));
        EXPECT_GE(cut->getNumChars(), 2) << n;
        EXPECT_LE(cut->getNumChars(), 6) << n;
        ASSERT_NE(nullptr, cut->getMissingChar());
        EXPECT_NE(nullptr, cut->getMissingChar()->pixels) << n;
    }
}

TEST(BitMapFont, countsBeyondTheFileAddNothing) {
    const FontPointer font = parse(kStart + std::vector<int32_t>{0x7F, 0xFF, 0, 65, 5, 0, 0, 0, 0});
    EXPECT_EQ(3, font->getNumChars());
    EXPECT_NE(nullptr, font->getMissingChar()->pixels);
}

TEST(BitMapFont, moreCharactersThanAFileCountsAreNotWritten) {
    BitMapFont font;
    for (int32_t codePoint = 1; codePoint <= 32767; codePoint++) {
        font.addChar(new BitMapCharacter(codePoint, 1, 0, 0));
    }
    ByteArrayOutputStream out;
    EXPECT_FALSE(font.writeTo(&out));
    EXPECT_EQ(0, out.size());
}

TEST_F(BitMapFontTest, widthIsTheInkedExtent) {
    EXPECT_EQ(0, widthOf(font, ""));
    EXPECT_EQ(3, widthOf(font, "a"));
    EXPECT_EQ(5, widthOf(font, "b"));
    EXPECT_EQ(0, widthOf(font, " "));
    EXPECT_EQ(-1 + 5 + -2 + 5, widthOf(font, "ab"));
    EXPECT_EQ(2 + 7 + 1 + 3, widthOf(font, "ba"));
    EXPECT_EQ(4 + 1 + 3, widthOf(font, " a"));   // no ink first: its offset does not count
    EXPECT_EQ(-1 + 5 + 0, widthOf(font, "a "));  // no ink last: its width is 0
    EXPECT_EQ(-1 + 5 + 7 + 2, widthOf(font, "abc"));
}

TEST_F(BitMapFontTest, startOfACharacterIsTheSumOfAdvances) {
    String text("abc");
    EXPECT_EQ(0, font.getCharStartX(&text, 0));
    EXPECT_EQ(5, font.getCharStartX(&text, 1));
    EXPECT_EQ(12, font.getCharStartX(&text, 2));
    EXPECT_EQ(12, font.getCharStartX(&text, 3));
    EXPECT_EQ(12, font.getCharStartX(&text, 99));
    EXPECT_EQ(0, font.getCharStartX(&text, -1));
    String empty("");
    EXPECT_EQ(0, font.getCharStartX(&empty, 5));
}

TEST_F(BitMapFontTest, textStartsWithItsInkAndStandsOnTheBaseline) {
    String text("ab");
    expectInk([&](AppImage* image) { font.drawString(&text, image, 3, 2, kBlue); },
              [](int32_t x, int32_t y) {  // baseline 12; pen 2, then 7
                  return inBox(x, y, 3, 8, 3, 4) || inBox(x, y, 5, 9, 5, 6);
              });
}

TEST_F(BitMapFontTest, textThatStartsWithABlankStartsWithThePen) {
    String text(" a");
    expectInk([&](AppImage* image) { font.drawString(&text, image, 3, 2, kBlue); },
              [](int32_t x, int32_t y) { return inBox(x, y, 8, 8, 3, 4); });
}

TEST_F(BitMapFontTest, emptyTextDrawsNothing) {
    String text("");
    expectInk(
        [&](AppImage* image) {
            font.drawString(&text, image, 3, 2, kBlue);
            font.drawString(&text, image, 3, 2, 0, 0, 40, 30, kBlue);
        },
        [](int32_t, int32_t) { return false; });
}

TEST_F(BitMapFontTest, theClippedFormCutsEveryCharacter) {
    String text("ab");  // box 3, 2, 7 x 13
    for (const int32_t clipX : {0, 3, 4, 6, 9, 10}) {
        for (const int32_t clipY : {0, 2, 3, 9, 14, 15}) {
            for (const int32_t size : {0, 1, 3, 9}) {
                expectInk(
                    [&](AppImage* image) {
                        font.drawString(&text, image, 3, 2, clipX, clipY, size, size, kBlue);
                    },
                    [&](int32_t x, int32_t y) {
                        return inBox(x, y, clipX, clipY, size, size) &&
                               (inBox(x, y, 3, 8, 3, 4) || inBox(x, y, 5, 9, 5, 6));
                    });
            }
        }
    }
}

TEST_F(BitMapFontTest, inkBeyondABoxInsideTheClipIsNotCut) {
    // "b" hangs 2 pixels to the left of its pen: after a blank it reaches out of the box
    String text(" b");
    font.getChar(' ')->advanceWidth = 0;  // box 5, 2, 3 x 13; ink 3 .. 7
    expectInk([&](AppImage* image) { font.drawString(&text, image, 5, 2, 5, 0, 9, 20, kBlue); },
              [](int32_t x, int32_t y) { return inBox(x, y, 3, 9, 5, 6); });
    expectInk([&](AppImage* image) { font.drawString(&text, image, 5, 2, 6, 0, 9, 20, kBlue); },
              [](int32_t x, int32_t y) { return inBox(x, y, 6, 9, 2, 6); });
}

TEST_F(BitMapFontTest, inkOutsideABoxThatMissesTheClipIsNotDrawn) {
    String text(" b");
    font.getChar(' ')->advanceWidth = 0;
    expectInk([&](AppImage* image) { font.drawString(&text, image, 5, 2, 0, 0, 5, 20, kBlue); },
              [](int32_t, int32_t) { return false; });
}

TEST_F(BitMapFontTest, aTextBeyondTheImageIsCut) {
    String text("ab");
    expectInk([&](AppImage* image) { font.drawString(&text, image, -5, -10, kBlue); },
              [](int32_t x, int32_t y) { return inBox(x, y, 0, 0, 2, 3); });
}

TEST(BitMapFont, fontsShareCharactersWhicheverGoesFirst) {
    for (const bool otherGoesFirst : {false, true}) {
        auto font = std::make_unique<BitMapFont>();
        auto other = std::make_unique<BitMapFont>();
        font->addChar(block('a', 1, 1, 2, 0, -1));
        other->addChar(block('a', 2, 2, 3, 0, -2));
        other->addChar(block('b', 2, 2, 3, 0, -2));
        other->addChar(new BitMapCharacter(' ', 6, 0, 0));
        font->addNewCharactersFrom(other.get());
        EXPECT_EQ(4, font->getNumChars());
        EXPECT_EQ(2, font->getChar('a')->advanceWidth);
        EXPECT_EQ(other->getChar('b'), font->getChar('b'));
        EXPECT_EQ(6, font->getChar(' ')->advanceWidth);
        EXPECT_EQ(6, other->getChar(' ')->advanceWidth);
        (otherGoesFirst ? other : font).reset();
        EXPECT_EQ(3, (otherGoesFirst ? font : other)->getChar('b')->advanceWidth);
    }
}

TEST(BitMapFont, aSharedCharacterThatIsReplacedStaysInTheOtherFont) {
    BitMapFont other;
    other.addChar(block('b', 2, 2, 3, 0, -2));
    BitMapFont font;
    font.addNewCharactersFrom(&other);
    font.addChar(block('b', 1, 1, 9, 0, -1));
    EXPECT_EQ(3, other.getChar('b')->advanceWidth);
    EXPECT_EQ(9, font.getChar('b')->advanceWidth);
}

TEST_F(BitMapFontTest, itsTextListsItsCharacters) {
    BitMapFont small;
    small.setMissingChar(1);
    EXPECT_EQ("original font name: n/a\n"
              "original font size: 0\n"
              "line height:        10\n"
              "numChars:           1\n"
              "codePoint: 0, w: 1, h: 1, adv.w.: 1, ofsX: 0, ofsY: -1",
              textOf(&small));
}

TEST(BitMapFont, theDefaultFontComesFromTheFrameworksFolder) {
    BitMapFont font;
    font.addChar(block('q', 2, 2, 3, 0, -2));
    const std::vector<int32_t> bytes = written(font);
    TestHost host;
    TestFolders folders;
    folders.write("framework/image/font/default.bmf", std::string(bytes.begin(), bytes.end()));
    host.mappedFolders.framework = folders.path("framework");
    const FontPointer found(BitMapFont::getDefaultFont());
    EXPECT_EQ(3, found->getChar('q')->advanceWidth);
    folders.remove("framework");
    const FontPointer none(BitMapFont::getDefaultFont());
    EXPECT_EQ(2, none->getNumChars());
}
