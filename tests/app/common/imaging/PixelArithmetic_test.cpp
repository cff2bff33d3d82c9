// SPDX-License-Identifier: MIT
// Every pixel operation of AppImage beside the slow model, over noise and over the edges of alpha.
#include "AppImage.h"
#include "PixelModel.h"
#include "PixProps.h"

#include <gtest/gtest.h>

using model::kEdgeAlphas;
using model::Noise;
using model::pixelsOf;

namespace {

constexpr int32_t kLightnesses[] = {-300, -1, 0, 1, 128, 255, 256, 257, 400, 511, 512, 513, 9000};
constexpr int32_t kSaturations[] = {0, 1, 128, 255, 256};
constexpr int32_t kOpacities[] = {0, 1, 127, 128, 254, 255, 256, 300};

// Not a multiple of any group of pixels, and several groups wide.
constexpr int32_t kWidthPx = 117;
constexpr int32_t kHeightPx = 9;

struct Rectangle {
    int32_t sx, sy, w, h, dx, dy;
};

// The whole image as one run, a wide part, narrow ones, single pixels at the corners.
constexpr Rectangle kRectangles[] = {{0, 0, kWidthPx, kHeightPx, 0, 0},
                                     {3, 1, 111, 7, 5, 2},
                                     {1, 0, 32, 9, 0, 0},
                                     {2, 3, 31, 2, 80, 7},
                                     {0, 0, 7, 9, 110, 0},
                                     {116, 8, 1, 1, 0, 8},
                                     {0, 0, 1, 9, 116, 0}};

/// Runs an operation over all rectangles and compares every pixel with the model's.
void compare(uint32_t seed,
             const std::function<void(AppImage&, AppImage&, const Rectangle&)>& operation,
             const std::function<uint32_t(uint32_t, uint32_t)>& pixel) {
    Noise noise(seed);
    for (const Rectangle& r : kRectangles) {
        AppImage src(kWidthPx, kHeightPx);
        AppImage dst(kWidthPx, kHeightPx);
        noise.fill(src);
        noise.fill(dst);
        auto expected = pixelsOf(dst);
        for (int32_t y = 0; y < r.h; y++) {
            for (int32_t x = 0; x < r.w; x++) {
                uint32_t& d = expected[static_cast<size_t>(r.dx + x + kWidthPx * (r.dy + y))];
                d = pixel(d, src.get(r.sx + x, r.sy + y));
            }
        }
        operation(dst, src, r);
        ASSERT_EQ(expected, pixelsOf(dst)) << "w " << r.w << " h " << r.h;
    }
}

}  // namespace

TEST(PixelArithmetic, sourceOverMatchesTheModel) {
    for (uint32_t seed = 0; seed < 40; seed++) {
        compare(
            seed,
            [](AppImage& dst, AppImage& src, const Rectangle& r) {
                dst.blend(&src, r.sx, r.sy, r.w, r.h, r.dx, r.dy);
            },
            [](uint32_t d, uint32_t s) { return model::over(d, s); });
    }
}

TEST(PixelArithmetic, sourceOverMatchesForEveryAlphaAndLevel) {
    uint32_t pixel = 0;
    for (uint32_t alpha = 0; alpha < 256; alpha++) {
        for (uint32_t level = 0; level < 256; level++) {
            const uint32_t d = level << 24 | level << 16 | (255 - level) << 8 | 255;
            const uint32_t s = alpha << 24 | alpha << 16 | (alpha / 2) << 8;
            AppImage::blend(&pixel, 0, d, s);
            ASSERT_EQ(model::over(d, s), pixel);
            AppImage image(1, 1, d);
            image.blend(s, 0, 0);
            ASSERT_EQ(pixel, image.get(0, 0));
        }
    }
}

TEST(PixelArithmetic, opacityBlendMatchesTheModel) {
    for (const int32_t opacity : {1, 2, 64, 127, 128, 200, 254, 255}) {
        compare(
            static_cast<uint32_t>(opacity),
            [opacity](AppImage& dst, AppImage& src, const Rectangle& r) {
                dst.blend(&src, r.sx, r.sy, r.w, r.h, r.dx, r.dy, opacity);
            },
            [opacity](uint32_t d, uint32_t s) { return model::over(d, s, opacity); });
    }
}

TEST(PixelArithmetic, opacityBlendMatchesForEveryAlphaAndOpacity) {
    uint32_t pixel = 0;
    for (int32_t opacity = 1; opacity < 256; opacity++) {
        for (uint32_t alpha = 0; alpha < 256; alpha++) {
            const uint32_t s = alpha << 24 | alpha << 16 | (alpha / 3) << 8;
            const uint32_t d = 0xFF00FF80;
            AppImage::blend(&pixel, 0, d, s, opacity);
            ASSERT_EQ(model::over(d, s, opacity), pixel);
        }
    }
}

TEST(PixelArithmetic, theTwoWeightBlendWeighsEachChannel) {
    uint32_t pixels[2] = {0, 0};
    AppImage::blend(pixels, 1, 0x00640032, 0x00FF000A, 0x000A0064, 0x00010014, 128, 64);
    // r (100 * 128 + 10 * 64) / 256 = 52, b 50, a (255 * 128 + 64) / 256 = 127, g 10
    EXPECT_EQ(0x7F340A32u, pixels[1]);
    EXPECT_EQ(0u, pixels[0]);
}

TEST(PixelArithmetic, propertyBlendMatchesTheModel) {
    uint32_t seed = 100;
    for (const int32_t lightness : kLightnesses) {
        for (const int32_t saturation : kSaturations) {
            const int32_t opacity = kOpacities[seed++ % 8];
            PixProps props(lightness, saturation, opacity);
            if (lightness == 256 && saturation == 256) {
                continue;  // that is the opacity blend
            }
            compare(
                seed,
                [&props](AppImage& dst, AppImage& src, const Rectangle& r) {
                    dst.blend(&src, r.sx, r.sy, r.w, r.h, r.dx, r.dy, &props);
                },
                [&](uint32_t d, uint32_t s) {
                    return model::over(d, model::props(s, lightness, saturation, opacity));
                });
        }
    }
}

TEST(PixelArithmetic, propertyBlendGoesThroughApplyPropsForEveryValue) {
    for (const int32_t saturation : {-256, -1, 257, 300, 512, 5000}) {
        for (const int32_t opacity : {-1, -256, 128, 256}) {
            PixProps props(300, saturation, opacity);
            compare(
                7,
                [&props](AppImage& dst, AppImage& src, const Rectangle& r) {
                    dst.blend(&src, r.sx, r.sy, r.w, r.h, r.dx, r.dy, &props);
                },
                [&props](uint32_t d, uint32_t s) {
                    uint32_t pixel = 0;
                    AppImage::blend(&pixel, 0, d, AppImage::applyProps(s, &props));
                    return pixel;
                });
        }
    }
}

TEST(PixelArithmetic, colourBlendMatchesTheModel) {
    Noise noise(5);
    for (const uint32_t alpha : kEdgeAlphas) {
        for (int32_t i = 0; i < 8; i++) {
            const uint32_t argb = AppImage::premult(alpha << 24 | (noise.word() & 0xFFFFFF));
            compare(
                noise.word(),
                [argb](AppImage& dst, AppImage& /*src*/, const Rectangle& r) {
                    dst.blend(argb, r.dx, r.dy, r.w, r.h);
                },
                [argb](uint32_t d, uint32_t /*s*/) { return model::over(d, argb); });
        }
    }
}

TEST(PixelArithmetic, colourBlendWithPropertiesChangesTheColourFirst) {
    PixProps props(300, 128, 200);
    const uint32_t argb = 0xC0A06020;
    compare(
        6,
        [&](AppImage& dst, AppImage& /*src*/, const Rectangle& r) {
            dst.blend(argb, r.dx, r.dy, r.w, r.h, &props);
        },
        [&](uint32_t d, uint32_t /*s*/) {
            return model::over(d, model::props(argb, 300, 128, 200));
        });
}

TEST(PixelArithmetic, maskBlendMatchesTheModel) {
    for (const uint32_t alpha : kEdgeAlphas) {
        const uint32_t argb = AppImage::premult(alpha << 24 | 0xFF8040);
        compare(
            alpha,
            [argb](AppImage& dst, AppImage& mask, const Rectangle& r) {
                dst.blend(argb, &mask, r.sx, r.sy, r.w, r.h, r.dx, r.dy, nullptr);
            },
            [argb](uint32_t d, uint32_t m) { return model::throughMask(d, argb, m); });
    }
}

TEST(PixelArithmetic, maskBlendTakesOnlyTheMasksAlphaAndAppliesProperties) {
    PixProps props(128, 256, 300);
    AppImage mask(1, 1, 0x80FFFFFFu);
    AppImage dst(1, 1, 0xFF000000u);
    dst.blend(0xFFFFFFFFu, &mask, 0, 0, 1, 1, 0, 0, &props);
    // lightness: 255 * 128 >> 8 = 127; through the mask: 127 * 128 >> 8 = 63, alpha 127;
    // remains 255 * (256 - 127) >> 8 = 128, and 127 + 128 = 255
    EXPECT_EQ(0xFF3F3F3Fu, dst.get(0, 0));
}

TEST(PixelArithmetic, coloursThatAreNotPremultipliedCarryTheSameEverywhere) {
    // k = 256: 0x00FF00FF + 0x00FF00FF = 0x01FE01FE; 0x0000FF00 + 0xFF00FF00 = 0xFF01FE00
    uint32_t pixel = 0;
    AppImage::blend(&pixel, 0, 0xFFFFFFFF, 0x00FFFFFF);
    EXPECT_EQ(0xFFFEFEFEu, pixel);
    Noise noise(8);
    AppImage src(kWidthPx, kHeightPx);
    AppImage dst(kWidthPx, kHeightPx);
    for (int32_t i = 0; i < kWidthPx * kHeightPx; i++) {
        src.writableRows(0, src.h)[i] = noise.word();
        dst.writableRows(0, dst.h)[i] = noise.word();
    }
    auto over = pixelsOf(dst);
    auto half = pixelsOf(dst);
    for (size_t i = 0; i < over.size(); i++) {
        const uint32_t s = src.pixels[i];
        const uint64_t rb = over[i] & 0xFF00FF;
        const uint64_t ag = over[i] >> 8 & 0xFF00FF;
        const uint64_t k = 256 - (s >> 24);
        const uint64_t kd = (65536 - uint64_t{s >> 24} * 128) >> 8;
        half[i] = static_cast<uint32_t>(((ag * kd + (s >> 8 & 0xFF00FF) * 128) & 0xFF00FF00) |
                                        (((rb * kd + (s & 0xFF00FF) * 128) & 0xFF00FF00) >> 8));
        over[i] = static_cast<uint32_t>((((s & 0xFF00FF) + (rb * k >> 8)) & 0xFF00FF) |
                                        (((s & 0xFF00FF00) + ag * k) & 0xFF00FF00));
    }
    AppImage other(&dst);
    dst.blend(&src, 0, 0, kWidthPx, kHeightPx, 0, 0);
    EXPECT_EQ(over, pixelsOf(dst));
    other.blend(&src, 0, 0, kWidthPx, kHeightPx, 0, 0, 128);
    EXPECT_EQ(half, pixelsOf(other));
}

TEST(PixelArithmetic, unchangedFactorsGiveTheColourItself) {
    Noise noise(9);
    for (int32_t i = 0; i < 1000; i++) {
        const uint32_t argb = noise.word();
        EXPECT_EQ(argb, AppImage::scaleLightness(argb, 256));
        EXPECT_EQ(argb, AppImage::scaleSaturation(argb, 256));
        EXPECT_EQ(argb, AppImage::scaleOpacity(argb, 256));
        EXPECT_EQ(argb, AppImage::applyProps(argb, nullptr));
    }
}

TEST(PixelArithmetic, lightnessEndsAtBlackAndAtPremultipliedWhite) {
    for (const uint32_t alpha : kEdgeAlphas) {
        const uint32_t argb = AppImage::premult(alpha << 24 | 0x80C0FF);
        EXPECT_EQ(alpha << 24, AppImage::scaleLightness(argb, 0));
        EXPECT_EQ(alpha << 24, AppImage::scaleLightness(argb, -7));
        const uint32_t white = alpha * 0x01010101;
        EXPECT_EQ(white, AppImage::scaleLightness(argb, 512));
        EXPECT_EQ(white, AppImage::scaleLightness(argb, 99999));
    }
}

TEST(PixelArithmetic, eachModifierMatchesTheModel) {
    Noise noise(10);
    for (int32_t i = 0; i < 3000; i++) {
        const uint32_t argb = noise.colour();
        const int32_t l = noise.below(520);
        const int32_t s = noise.below(257);
        const int32_t o = noise.below(260);
        ASSERT_EQ(model::lightness(argb, l), AppImage::scaleLightness(argb, l)) << l;
        ASSERT_EQ(model::saturation(argb, s), AppImage::scaleSaturation(argb, s)) << s;
        ASSERT_EQ(model::opacity(argb, o), AppImage::scaleOpacity(argb, o)) << o;
        PixProps props(l, s, o);
        ASSERT_EQ(model::props(argb, l, s, o), AppImage::applyProps(argb, &props));
    }
}

TEST(PixelArithmetic, saturationAbove256RunsOn) {
    // grey (183 * 100 + 55 * 110 + 18 * 100) >> 8 = 102; 2 * 110 - 102 = 118, 2 * 100 - 102 = 98
    EXPECT_EQ(0xFF766262u, AppImage::scaleSaturation(0xFF6E6464, 512));
    // Blue alone: grey (18 * 255) >> 8 = 17. Blue 2 * 255 - 17 = 493 keeps 237 (0xED), red and
    // green -17 keep 239 (0xEF), and the borrow of green takes one from alpha.
    EXPECT_EQ(0xFEEFEFEDu, AppImage::scaleSaturation(0xFF0000FF, 512));
}

TEST(PixelArithmetic, opacityBelow0MultipliesBySomethingLarge) {
    // -256 is 0xFFFFFF00: the pair 0x00000001 times that, shifted by 8, is 0x00FFFFFF
    EXPECT_EQ(0x00FF00FFu, AppImage::scaleOpacity(0x00000001, -256));
}

TEST(PixelArithmetic, lerpRunsFromOneColourToTheOther) {
    EXPECT_EQ(0x12345678u, AppImage::argbLerp(0x12345678, 0x9ABCDEF0, 0));
    EXPECT_EQ(0x9ABCDEF0u, AppImage::argbLerp(0x12345678, 0x9ABCDEF0, 256));
    // (0 * 128 + 255 * 128) >> 8 = 127 for every channel
    EXPECT_EQ(0x7F7F7F7Fu, AppImage::argbLerp(0x00000000, 0xFFFFFFFF, 128));
    EXPECT_EQ(0x003F007Fu, AppImage::argbLerp(0x00000000, 0x007F00FF, 128));
}
