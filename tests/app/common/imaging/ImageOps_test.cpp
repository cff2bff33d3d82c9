// SPDX-License-Identifier: MIT
// Clipped drawing touches only pixels inside the image and the clip, and each as the rule says.
#include "AppImage.h"
#include "ImageOps.h"
#include "PixelModel.h"
#include "PixProps.h"
#include "Rect.h"

#include <gtest/gtest.h>

#include <array>

using model::Noise;
using model::pixelsOf;

namespace {

constexpr int32_t kDstW = 11;
constexpr int32_t kDstH = 9;
constexpr int32_t kSrcW = 5;
constexpr int32_t kSrcH = 4;

// The whole image, more than it, a part of it, one pixel, a part outside, nothing.
constexpr std::array<std::array<int32_t, 4>, 6> kClips = {{{0, 0, kDstW, kDstH},
                                                           {-9, -9, 40, 40},
                                                           {2, 3, 6, 4},
                                                           {10, 8, 1, 1},
                                                           {11, 0, 5, 9},
                                                           {3, 3, 0, 2}}};

bool isIn(const std::array<int32_t, 4>& clip, int32_t x, int32_t y) {
    return x >= clip[0] && x < clip[0] + clip[2] && y >= clip[1] && y < clip[1] + clip[3];
}

bool isIn(const AppImage& image, int32_t x, int32_t y) {
    return x >= 0 && x < image.w && y >= 0 && y < image.h;
}

using Pixel = std::function<uint32_t(uint32_t d, int32_t x, int32_t y)>;
using Draw = std::function<void(AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip)>;

/// Draws at every position from just outside one corner to just outside the other, with every clip,
/// and compares with the model. The model is called for each pixel of the destination inside the
/// clip, with x and y relative to the position.
void drawEverywhere(const Draw& draw, const std::function<Pixel(AppImage&)>& modelOf) {
    Noise noise(1);
    AppImage src(kSrcW, kSrcH);
    noise.fill(src);
    const Pixel pixel = modelOf(src);
    for (const auto& c : kClips) {
        Rect clip(c[0], c[1], c[2], c[3]);
        for (int32_t y = -kSrcH - 1; y <= kDstH + 1; y++) {
            for (int32_t x = -kSrcW - 1; x <= kDstW + 1; x++) {
                AppImage dst(kDstW, kDstH);
                noise.fill(dst);
                auto expected = pixelsOf(dst);
                for (int32_t i = 0; i < kDstW * kDstH; i++) {
                    const int32_t dx = i % kDstW;
                    const int32_t dy = i / kDstW;
                    uint32_t& d = expected[static_cast<size_t>(i)];
                    d = isIn(c, dx, dy) ? pixel(d, dx - x, dy - y) : d;
                }
                draw(dst, src, x, y, clip);
                ASSERT_EQ(expected, pixelsOf(dst)) << x << ", " << y << " clip " << c[0];
            }
        }
    }
}

/// The pixel of an image; transparent outside it.
uint32_t at(AppImage& image, int32_t x, int32_t y) {
    return isIn(image, x, y) ? image.get(x, y) : 0;
}

}  // namespace

TEST(ImageOps, imagesAreCutToDestinationAndClip) {
    drawEverywhere([](AppImage& dst, AppImage& src, int32_t x, int32_t y,
                      Bounded* clip) { ImageOps::blend(&dst, &src, x, y, clip, nullptr); },
                   [](AppImage& src) {
                       return [&src](uint32_t d, int32_t x, int32_t y) {
                           return model::over(d, at(src, x, y));
                       };
                   });
}

TEST(ImageOps, imagesTakeTheirProperties) {
    drawEverywhere(
        [](AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip) {
            PixProps props(200, 128, 100);
            ImageOps::blend(&dst, &src, x, y, clip, &props);
        },
        [](AppImage& src) {
            return [&src](uint32_t d, int32_t x, int32_t y) {
                return model::over(d, model::props(at(src, x, y), 200, 128, 100));
            };
        });
}

TEST(ImageOps, atNegativeCoordinatesTheSourceOffsetIsTheirNegative) {
    AppImage src(3, 3);
    for (int32_t i = 0; i < 9; i++) {
        src.writableRows(0, src.h)[i] = 0xFF000000 + static_cast<uint32_t>(i);
    }
    AppImage dst(2, 2, 0u);
    ImageOps::blend(&dst, &src, -1, -2, Rect(0, 0, 2, 2), nullptr);
    EXPECT_EQ((std::vector<uint32_t>{0xFF000007, 0xFF000008, 0, 0}), pixelsOf(dst));
}

TEST(ImageOps, positionsFarOutsideDrawNothing) {
    AppImage src(3, 3, 0xFFFFFFFFu);
    AppImage dst(4, 4, 7u);
    const auto before = pixelsOf(dst);
    Rect clip(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
    Rect all(0, 0, 4, 4);
    for (const int32_t far : {INT32_MIN, INT32_MIN + 2, INT32_MAX - 2, INT32_MAX}) {
        ImageOps::blend(&dst, &src, far, 0, all, nullptr);
        ImageOps::blend(&dst, 0xFFFFFFFFu, 0, far, 1000, 3, all, nullptr);
        ImageOps::blend(&dst, 0xFFFFFFFFu, &src, far, far, all, nullptr);
        ImageOps::blendStretched(&dst, &src, 0, 0, true, Rect(far, 0, 9, 9), all, nullptr);
        ImageOps::blendStretched(&dst, &src, far, far, true, all, all, nullptr);
        ImageOps::blendMap(&dst, &src, Rect(far, 0, 5, 5), 0, 0, all, nullptr);
        ImageOps::copyWidth16To1(&src, &dst, far, 0);
        ImageOps::copyWidth16To1(&src, &dst, 0, far);
    }
    ImageOps::blend(&dst, &src, 0, 0, clip, nullptr);
    EXPECT_EQ(before, pixelsOf(dst));
}

TEST(ImageOps, coloursAreCutToDestinationAndClip) {
    for (const uint32_t argb : {0x80402010u, 0xFF102030u, 0x01010101u, 0x00000000u}) {
        drawEverywhere(
            [argb](AppImage& dst, AppImage& /*src*/, int32_t x, int32_t y, Bounded* clip) {
                ImageOps::blend(&dst, argb, x, y, 3, 2, clip, nullptr);
            },
            [argb](AppImage& /*src*/) {
                return [argb](uint32_t d, int32_t x, int32_t y) {
                    return x >= 0 && x < 3 && y >= 0 && y < 2 ? model::over(d, argb) : d;
                };
            });
    }
}

TEST(ImageOps, aColourWithoutAlphaAfterItsPropertiesDrawsNothing) {
    AppImage dst(2, 2, 0x80808080u);
    PixProps none(256, 256, 0);
    const int32_t pooled = Bounds::printNumRecycled(false);
    ImageOps::blend(&dst, 0xFFFFFFFFu, 0, 0, 2, 2, nullptr, &none);  // not even the clip is asked
    EXPECT_EQ(pooled, Bounds::printNumRecycled(false));
    EXPECT_EQ(0x80808080u, dst.get(0, 0));
}

TEST(ImageOps, colourPropertiesComeBeforeTheBlend) {
    AppImage dst(1, 1, 0xFF808080u);
    PixProps props(128, 256, 128);
    ImageOps::blend(&dst, 0xFFFF0000u, 0, 0, 1, 1, Rect(0, 0, 1, 1), &props);
    EXPECT_EQ(model::over(0xFF808080, model::props(0xFFFF0000, 128, 256, 128)), dst.get(0, 0));
}

TEST(ImageOps, masksAreCutToDestinationAndClip) {
    drawEverywhere(
        [](AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip) {
            PixProps props(256, 256, 200);
            ImageOps::blend(&dst, 0xFF8040C0u, &src, x, y, clip, &props);
        },
        [](AppImage& src) {
            return [&src](uint32_t d, int32_t x, int32_t y) {
                return model::throughMask(d, model::opacity(0xFF8040C0, 200), at(src, x, y));
            };
        });
}

TEST(ImageOps, shiftedRectanglesBlendOrReplace) {
    for (const bool fill : {false, true}) {
        drawEverywhere(
            [fill](AppImage& dst, AppImage& /*src*/, int32_t x, int32_t y, Bounded* clip) {
                Rect rect(1, -2, 3, 4);
                (fill ? ImageOps::fillRect : ImageOps::blendRect)(&dst, rect, 0x40201000u, x - 1,
                                                                  y + 2, clip, nullptr);
            },
            [fill](AppImage& /*src*/) {
                return [fill](uint32_t d, int32_t x, int32_t y) {
                    if (x < 0 || x >= 3 || y < 0 || y >= 4) {
                        return d;
                    }
                    return fill ? 0x40201000u : model::over(d, 0x40201000u);
                };
            });
    }
}

TEST(ImageOps, fillingWithATransparentColourErases) {
    AppImage dst(1, 1, 0xFFFFFFFFu);
    PixProps none(256, 256, 0);
    Rect all(0, 0, 1, 1);
    ImageOps::blendRect(&dst, all, 0xFF123456u, 0, 0, all, &none);
    EXPECT_EQ(0xFFFFFFFFu, dst.get(0, 0));
    ImageOps::fillRect(&dst, all, 0xFF123456u, 0, 0, all, &none);
    EXPECT_EQ(0u, dst.get(0, 0));
}

TEST(ImageOps, aStretchedColumnColoursItsRows) {
    drawEverywhere(
        [](AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip) {
            ImageOps::blendStretched(&dst, &src, 2, 1, true, Rect(x, y, 6, 5), clip, nullptr);
        },
        [](AppImage& src) {
            return [&src](uint32_t d, int32_t x, int32_t y) {
                const bool inside = x >= 0 && x < 6 && y >= 0 && y < 5;
                const uint32_t s = inside ? at(src, 2, 1 + y) : 0;  // the last row has no source
                return s >> 24 == 0 ? d : model::over(d, s);
            };
        });
}

TEST(ImageOps, aStretchedRowColoursItsColumns) {
    drawEverywhere(
        [](AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip) {
            PixProps props(300, 256, 256);
            ImageOps::blendStretched(&dst, &src, -1, 3, false, Rect(x, y, 7, 2), clip, &props);
        },
        [](AppImage& src) {
            return [&src](uint32_t d, int32_t x, int32_t y) {
                const bool inside = x >= 0 && x < 7 && y >= 0 && y < 2;
                const uint32_t s = model::lightness(inside ? at(src, x - 1, 3) : 0, 300);
                return s >> 24 == 0 ? d : model::over(d, s);
            };
        });
}

TEST(ImageOps, partsOfAMapAreCutToMapDestinationAndClip) {
    drawEverywhere(
        [](AppImage& dst, AppImage& src, int32_t x, int32_t y, Bounded* clip) {
            ImageOps::blendMap(&dst, &src, Rect(-1, 2, 4, 9), x, y, clip, nullptr);
        },
        [](AppImage& src) {
            return [&src](uint32_t d, int32_t x, int32_t y) {
                const bool inside = x >= 0 && x < 4 && y >= 0 && y < 9;
                return inside ? model::over(d, at(src, x - 1, y + 2)) : d;
            };
        });
}

TEST(ImageOps, cellsOfAMapAreCountedRowByRow) {
    AppImage map(7, 4);  // cells of 2 x 2, the last column left over
    for (int32_t i = 0; i < 28; i++) {
        map.writableRows(0, map.h)[i] = 0xFF000000 + static_cast<uint32_t>(i);
    }
    Rect all(0, 0, 2, 2);
    AppImage dst(2, 2, 0u);
    ImageOps::blendMap(&dst, &map, 4, 3, 2, 0, 0, all, nullptr);
    EXPECT_EQ((std::vector<uint32_t>{0xFF000010, 0xFF000011, 0xFF000017, 0xFF000018}),
              pixelsOf(dst));
}

TEST(ImageOps, cellsThatAMapDoesNotHaveDrawNothing) {
    AppImage map(6, 4, 0xFFFFFFFFu);
    AppImage dst(2, 2, 3u);
    Rect all(0, 0, 2, 2);
    for (const int32_t index : {-1, 6, 7, INT32_MAX}) {
        ImageOps::blendMap(&dst, &map, index, 3, 2, 0, 0, all, nullptr);
    }
    ImageOps::blendMap(&dst, &map, 0, 0, 2, 0, 0, all, nullptr);
    ImageOps::blendMap(&dst, &map, 0, 3, -1, 0, 0, all, nullptr);
    ImageOps::blendMap(&dst, &map, 0, 7, 1, 0, 0, all, nullptr);  // cells without width
    EXPECT_EQ((std::vector<uint32_t>{3, 3, 3, 3}), pixelsOf(dst));
}

TEST(ImageOps, aWhiteStripReducesToOneColumnOrTwoHalves) {
    AppImage strip(16, 1, 0xFFFFFFFFu);
    AppImage dst(3, 1, 0x11111111u);
    ImageOps::copyWidth16To1(&strip, &dst, 0, 0);
    EXPECT_EQ((std::vector<uint32_t>{0xFFFFFFFF, 0x11111111, 0x11111111}), pixelsOf(dst));
    ImageOps::copyWidth16To1(&strip, &dst, 8, 0);
    EXPECT_EQ((std::vector<uint32_t>{0x80808080, 0x80808080, 0x11111111}), pixelsOf(dst));
}

TEST(ImageOps, reductionAddsUpEachChannelOfEachCellAtEveryPosition) {
    Noise noise(2);
    AppImage src(37, 3);
    noise.fill(src);
    for (int32_t y = -4; y < 8; y++) {
        for (int32_t x = -60; x < 120; x++) {
            AppImage dst(6, 5, 0x12345678u);
            auto expected = pixelsOf(dst);
            for (int32_t i = 0; i < 30; i++) {
                const int32_t row = i / 6 - y;
                std::array<uint32_t, 4> sums = {15, 15, 15, 15};
                int32_t columns = 0;
                for (int32_t c = 0; c < src.w; c++) {
                    // rounded down, below 0 too
                    if ((x + c + 1600) / 16 - 100 == i % 6 && row >= 0 && row < src.h) {
                        columns++;
                        for (size_t k = 0; k < 4; k++) {
                            sums[k] += src.get(c, row) >> (24 - 8 * k) & 255;
                        }
                    }
                }
                if (columns > 0) {
                    expected[static_cast<size_t>(i)] =
                        sums[0] / 16 << 24 | sums[1] / 16 << 16 | sums[2] / 16 << 8 | sums[3] / 16;
                }
            }
            ImageOps::copyWidth16To1(&src, &dst, x, y);
            ASSERT_EQ(expected, pixelsOf(dst)) << x << ", " << y;
        }
    }
}

TEST(ImageOps, drawingAllocatesNothingOnceThePoolIsFilled) {
    AppImage src(4, 4, 0x80404040u);
    AppImage dst(8, 8, 0xFF000000u);
    Rect clip(0, 0, 8, 8);
    PixProps props(300, 200, 100);
    const auto drawAll = [&] {
        ImageOps::blend(&dst, &src, 1, 1, clip, &props);
        ImageOps::blend(&dst, 0x80000000u, 1, 1, 3, 3, clip, &props);
        ImageOps::blend(&dst, 0x80000000u, &src, 9, 9, clip, nullptr);
        ImageOps::blendStretched(&dst, &src, 0, 0, true, clip, clip, &props);
        ImageOps::blendMap(&dst, &src, 1, 2, 2, 0, 0, clip, nullptr);
        ImageOps::fillRect(&dst, clip, 1u, 0, 0, clip, nullptr);
        ImageOps::blendRect(&dst, clip, 0x80000001u, 0, 0, clip, nullptr);
    };
    drawAll();
    Bounds::printNumRecycled(false);
    drawAll();
    EXPECT_EQ(0, Bounds::printNumRecycled(true));
}
