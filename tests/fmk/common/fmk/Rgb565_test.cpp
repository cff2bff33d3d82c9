// SPDX-License-Identifier: MIT
// Colours become 565 and come back, and blend, by the rule for one channel.
#include "Rgb565.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

std::vector<uint32_t> noise(size_t n, uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<uint32_t> words(n);
    for (uint32_t& word : words) {
        word = static_cast<uint32_t>(random());
    }
    return words;
}

/// One channel at a time, with a true division.
uint16_t slowBlend(uint32_t argb, uint16_t dst) {
    const uint32_t a = argb >> 24;
    const uint32_t red = (dst >> 11) * 8U;
    const uint32_t green = ((dst >> 5) & 63) * 4U;
    const uint32_t blue = (dst & 31) * 8U;
    const uint32_t r = (a * ((argb >> 16) & 255) + (255 - a) * red) / 255;
    const uint32_t g = (a * ((argb >> 8) & 255) + (255 - a) * green) / 255;
    const uint32_t b = (a * (argb & 255) + (255 - a) * blue) / 255;
    return static_cast<uint16_t>(r / 8 * 2048 + g / 4 * 32 + b / 8);
}

}  // namespace

TEST(Rgb565, keepsTheTopBitsOfEachChannel) {
    EXPECT_EQ(0xFFFF, Rgb565::fromRgb(0x00FFFFFF));
    EXPECT_EQ(0x0000, Rgb565::fromRgb(0xFF070307));
    EXPECT_EQ(0x0821, Rgb565::fromRgb(0x00080408));
    EXPECT_EQ(0xF800, Rgb565::fromRgb(0x00FF0000));
    EXPECT_EQ(0x07E0, Rgb565::fromRgb(0x0000FF00));
    EXPECT_EQ(0x001F, Rgb565::fromRgb(0x000000FF));
}

TEST(Rgb565, whiteComesBackWithoutItsLowBits) {
    EXPECT_EQ(0xF8FCF8U, Rgb565::toRgb(0xFFFF));
    EXPECT_EQ(0xF80000U, Rgb565::toRgb(0xF800));
    EXPECT_EQ(0x00FC00U, Rgb565::toRgb(0x07E0));
    EXPECT_EQ(0x0000F8U, Rgb565::toRgb(0x001F));
}

TEST(Rgb565, everyPixelSurvivesTheWayThereAndBack) {
    for (uint32_t pixel = 0; pixel <= 0xFFFF; pixel++) {
        ASSERT_EQ(pixel, Rgb565::fromRgb(Rgb565::toRgb(static_cast<uint16_t>(pixel))));
    }
}

TEST(Rgb565, blendDividesBy255ForEveryAlphaAndChannelValue) {
    for (uint32_t a = 0; a < 256; a++) {
        for (uint32_t src = 0; src < 256; src++) {
            for (uint32_t dst = 0; dst < 65536; dst += 2081) {  // steps through all channel values
                const uint32_t argb = a << 24 | src << 16 | (255 - src) << 8 | src;
                const auto under = static_cast<uint16_t>(dst);
                ASSERT_EQ(slowBlend(argb, under), Rgb565::blend(argb, under))
                    << "alpha " << a << " source " << src << " under " << dst;
            }
        }
    }
}

TEST(Rgb565, rowsOfEveryLengthEqualSinglePixels) {
    const std::vector<uint32_t> words = noise(70, 1);
    for (int32_t n = 0; n <= 70; n++) {
        std::vector<uint16_t> stored(72, 0x1234);
        std::vector<uint16_t> blended(72, 0x5A5A);
        Rgb565::storeRow(stored.data() + 1, words.data(), n);
        Rgb565::blendRow(blended.data() + 1, words.data(), n);
        for (int32_t i = 0; i < 72; i++) {
            const auto at = static_cast<size_t>(i);
            const bool inside = i >= 1 && i <= n;
            ASSERT_EQ(inside ? Rgb565::fromRgb(words[at - 1]) : 0x1234, stored[at]);
            ASSERT_EQ(inside ? slowBlend(words[at - 1], 0x5A5A) : 0x5A5A, blended[at]);
        }
    }
}

TEST(Rgb565, aRowIsOpaqueOnlyIfEveryWordIs) {
    std::vector<uint32_t> words(67, 0xFF000000);
    EXPECT_TRUE(Rgb565::isRowOpaque(words.data(), 67));
    for (size_t i = 0; i < words.size(); i++) {
        words[i] = 0xFEFFFFFF;
        EXPECT_FALSE(Rgb565::isRowOpaque(words.data(), 67)) << i;
        EXPECT_TRUE(Rgb565::isRowOpaque(words.data(), static_cast<int32_t>(i)));
        words[i] = 0xFF000000;
    }
}
