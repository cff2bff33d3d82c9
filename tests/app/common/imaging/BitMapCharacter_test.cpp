// SPDX-License-Identifier: MIT
// Glyphs are packed, drawn, clipped, read and written pixel by pixel.
#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapCharacter.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"
#include "DataInputStream.h"
#include "DataOutputStream.h"
#include "OspBase.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

constexpr int32_t kGlyphW = 5;
constexpr int32_t kGlyphH = 7;
constexpr int32_t kImageW = 20;
constexpr int32_t kImageH = 16;

/// A glyph's coverage, with every value from 0 to 15 at least twice.
std::vector<signed char> someCoverage() {
    std::vector<signed char> coverage(kGlyphW * kGlyphH);
    for (size_t i = 0; i < coverage.size(); i++) {
        coverage[i] = static_cast<signed char>(i * 7 % 16);
    }
    return coverage;
}

void fillWithNoise(AppImage& image, uint32_t seed) {
    std::mt19937 random(seed);
    for (int32_t i = 0; i < image.w * image.h; i++) {
        image.writableRows(0, image.h)[i] = static_cast<uint32_t>(random());
    }
}

uint32_t channel(uint32_t argb, int32_t shift) {
    return (argb >> shift) & 255;
}

/// The slow model, one channel at a time.
uint32_t slowInk(uint32_t d, uint32_t colour, uint32_t coverage) {
    if (coverage == 0) {
        return d;
    }
    const uint32_t f = 17 * coverage + 1;
    const uint32_t k = 256 - channel(colour, 24) * f / 256;
    uint32_t out = 0;
    for (const int32_t shift : {0, 8, 16, 24}) {
        out |= (channel(d, shift) * k / 256 + channel(colour, shift) * f / 256) << shift;
    }
    return out;
}

/// A premultiplied colour of the given alpha.
uint32_t colourOf(uint32_t alpha) {
    return alpha << 24 | alpha * 3 / 4 << 16 | alpha << 8 | alpha / 5;
}

struct Clip {
    int32_t x, y, w, h;
};

/// Draws the glyph at (x, y) of a noisy image, and compares with the slow model.
void expectDrawn(int32_t x, int32_t y, const Clip* clip, uint32_t colour) {
    const std::vector<signed char> coverage = someCoverage();
    BitMapCharacter glyph('A', coverage.data(), kGlyphW, kGlyphH, 6, 0, 0);
    AppImage image(kImageW, kImageH);
    fillWithNoise(image, 5);
    AppImage before(&image);
    if (clip == nullptr) {
        glyph.draw(&image, x, y, colour);
    } else {
        glyph.draw(&image, x, y, clip->x, clip->y, clip->w, clip->h, colour);
    }
    for (int32_t row = 0; row < kImageH; row++) {
        for (int32_t column = 0; column < kImageW; column++) {
            uint32_t expected = before.get(column, row);
            const bool inGlyph =
                column >= x && column < x + kGlyphW && row >= y && row < y + kGlyphH;
            const bool inClip =
                clip == nullptr || (column >= clip->x && column < clip->x + clip->w &&
                                    row >= clip->y && row < clip->y + clip->h);
            if (inGlyph && inClip) {
                const auto at = static_cast<size_t>(column - x + kGlyphW * (row - y));
                expected = slowInk(expected, colour, static_cast<uint32_t>(coverage[at]));
            }
            ASSERT_EQ(expected, image.get(column, row)) << "at " << column << ", " << row;
        }
    }
}

/// Bytes as a stream, the array freed at the end.
class Stream {
public:
    explicit Stream(const std::vector<int32_t>& bytes)
        : array(newArray<signed char>(static_cast<int32_t>(bytes.size())))
        , in(array)
        , data(&in) {
        for (size_t i = 0; i < bytes.size(); i++) {
            array[i] = static_cast<signed char>(bytes[i]);
        }
    }

    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    ~Stream() { deleteArrFunc(array); }

    signed char* array;
    ByteArrayInputStream in;
    DataInputStream data;
};

}  // namespace

TEST(BitMapCharacter, coverageIsPackedEightToAWordFirstPixelOnTop) {
    const signed char coverage[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    const BitMapCharacter glyph('x', coverage, 3, 3, 4, 0, 0);
    ASSERT_EQ(2, length(glyph.pixels));
    EXPECT_EQ(0x12345678U, glyph.pixels[0]);
    EXPECT_EQ(0x90000000U, glyph.pixels[1]);
}

TEST(BitMapCharacter, inkEqualsTheSlowModelForEveryAlpha) {
    for (const uint32_t alpha : {0U, 1U, 127U, 128U, 254U, 255U}) {
        SCOPED_TRACE(alpha);
        expectDrawn(4, 5, nullptr, colourOf(alpha));
    }
}

TEST(BitMapCharacter, fullCoverageOfAnOpaqueColourOverwrites) {
    const signed char full = 15;
    BitMapCharacter dot('.', &full, 1, 1, 1, 0, 0);
    AppImage image(1, 1, 0x12345678);
    dot.draw(&image, 0, 0, 0xFFABCDEF);
    EXPECT_EQ(0xFFABCDEFU, image.get(0, 0));
}

TEST(BitMapCharacter, coverageZeroLeavesEvenUnderAnOpaqueColour) {
    const signed char none = 0;
    BitMapCharacter dot('.', &none, 1, 1, 1, 0, 0);
    AppImage image(1, 1, 0x12345678);
    dot.draw(&image, 0, 0, 0xFFABCDEF);
    EXPECT_EQ(0x12345678U, image.get(0, 0));
}

TEST(BitMapCharacter, halfCoverageByHand) {
    const signed char half = 7;  // f = 120
    BitMapCharacter dot('.', &half, 1, 1, 1, 0, 0);
    AppImage image(1, 1, 0xFF000000);
    dot.draw(&image, 0, 0, 0xFFFFFFFF);
    // 255 * 120 >> 8 = 119; k = 137; alpha 255 * 137 >> 8 = 136, + 119
    EXPECT_EQ(0xFF777777U, image.get(0, 0));
}

TEST(BitMapCharacter, theClipCutsAtEveryEdge) {
    for (const int32_t clipX : {-9, 3, 4, 5, 8, 9, 30}) {
        for (const int32_t clipW : {-1, 0, 1, 5, 6, 40}) {
            for (const int32_t clipY : {-9, 4, 5, 6, 11, 12, 30}) {
                for (const int32_t clipH : {-1, 0, 1, 7, 8, 40}) {
                    const Clip clip = {clipX, clipY, clipW, clipH};
                    expectDrawn(4, 5, &clip, colourOf(200));
                }
            }
        }
    }
}

TEST(BitMapCharacter, glyphsThatReachOutOfTheImageAreCut) {
    for (const int32_t x : {-2147483647 - 1, -5, -4, 0, 15, 16, 20}) {
        for (const int32_t y : {-2147483647 - 1, -7, -6, 0, 9, 10, 16}) {
            expectDrawn(x, y, nullptr, colourOf(255));
        }
    }
}

TEST(BitMapCharacter, placesAtTheEndOfTheNumbersDrawNothing) {
    const signed char full = 15;
    BitMapCharacter dot('.', &full, 1, 1, 1, 0, 0);
    AppImage image(1, 1, 0);
    dot.draw(&image, 2147483647, 2147483647, 0xFFFFFFFF);
    dot.draw(&image, 0, 0, -2147483647 - 1, -2147483647 - 1, 2147483647, 2147483647, 0xFFFFFFFF);
    EXPECT_EQ(0U, image.get(0, 0));
    dot.draw(&image, 0, 0, 0, 0, 2147483647, 2147483647, 0xFFFFFFFF);
    EXPECT_EQ(0xFFFFFFFFU, image.get(0, 0));
}

TEST(BitMapCharacter, aRecordIsReadInTheOrderOfTheFile) {
    Stream stream({0x20, 0xAC, 9, 0xFF, 0xF8, 3, 3, 0x12, 0x34, 0x56, 0x78, 0x90, 0, 0, 0, 77});
    const std::unique_ptr<BitMapCharacter> glyph(BitMapCharacter::createFrom(&stream.data));
    EXPECT_EQ(0x20AC, glyph->codePoint);
    EXPECT_EQ(9, glyph->advanceWidth);
    EXPECT_EQ(-1, glyph->ofsX);
    EXPECT_EQ(-8, glyph->ofsY);
    EXPECT_EQ(3, glyph->w);
    EXPECT_EQ(3, glyph->h);
    ASSERT_EQ(2, length(glyph->pixels));
    EXPECT_EQ(0x12345678U, glyph->pixels[0]);
    EXPECT_EQ(0x90000000U, glyph->pixels[1]);
    EXPECT_EQ(77, stream.data.read());
}

TEST(BitMapCharacter, sizesAreUnsignedAndAdvancesSigned) {
    Stream stream({0, 65, 0x80, 0x7F, 0x80, 255, 0});
    const std::unique_ptr<BitMapCharacter> glyph(BitMapCharacter::createFrom(&stream.data));
    EXPECT_EQ(-128, glyph->advanceWidth);
    EXPECT_EQ(127, glyph->ofsX);
    EXPECT_EQ(-128, glyph->ofsY);
    EXPECT_EQ(nullptr, glyph->pixels);  // one side of 0: no bitmap
    EXPECT_EQ(0, glyph->w);
}

TEST(BitMapCharacter, aRecordCutShortKeepsZeroWords) {
    Stream stream({0, 65, 5, 0, 0, 255, 255, 0xAB, 0xCD, 0xEF});
    const std::unique_ptr<BitMapCharacter> glyph(BitMapCharacter::createFrom(&stream.data));
    ASSERT_EQ((255 * 255 + 7) / 8, length(glyph->pixels));
    EXPECT_EQ(0xABCDEF00U, glyph->pixels[0]);
    EXPECT_EQ(0U, glyph->pixels[1]);
    AppImage image(300, 300, 0);
    glyph->draw(&image, 10, 10, 0xFFFFFFFF);
    EXPECT_EQ(0U, image.get(264, 264));
}

TEST(BitMapCharacter, anEndedStreamHasNoRecord) {
    Stream stream({});
    EXPECT_EQ(nullptr, BitMapCharacter::createFrom(&stream.data));
}

TEST(BitMapCharacter, aRecordWithoutInkIsWrittenWithoutWords) {
    ByteArrayOutputStream out;
    DataOutputStream data(&out);
    BitMapCharacter space(0x0120, 4, -2, 3);
    space.writeTo(&data);
    signed char* bytes = out.toByteArray();
    EXPECT_EQ((std::vector<int32_t>{1, 0x20, 4, -2, 3, 0, 0}),
              std::vector<int32_t>(bytes, bytes + length(bytes)));
    deleteArrFunc(bytes);
}

TEST(BitMapCharacter, itsTextNamesEveryNumber) {
    const signed char ink[2] = {1, 2};
    BitMapCharacter glyph(65, ink, 1, 2, 7, -1, -9);
    const std::unique_ptr<Osp::Base::String> text(glyph.toString());
    EXPECT_EQ("codePoint: 65, w: 1, h: 2, adv.w.: 7, ofsX: -1, ofsY: -9", text->ToUtf8());
}
