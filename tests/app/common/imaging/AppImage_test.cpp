// SPDX-License-Identifier: MIT
// Images keep, copy, blend and premultiply their pixels by the stated rules.
#include "AppImage.h"
#include "ArrFunc.h"
#include "OspBase.h"
#include "PixelModel.h"
#include "PixProps.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <utility>

using model::pixelsOf;

namespace {

/// Records which of its virtual operations are called, and does what the image does.
class Watched : public AppImage {
public:
    using AppImage::AppImage;
    using AppImage::blend;
    using AppImage::set;

    void set(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h) override {
        calls += "fill ";
        AppImage::set(argb, x, y, w, h);
    }

    void set(AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy)
        override {
        calls += "copy ";
        AppImage::set(src, sx, sy, w, h, dx, dy);
    }

    void blend(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h) override {
        calls += "colour ";
        AppImage::blend(argb, x, y, w, h);
    }

    void blend(AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy)
        override {
        calls += "plain ";
        AppImage::blend(src, sx, sy, w, h, dx, dy);
    }

    void blend(AppImage* src,
               int32_t sx,
               int32_t sy,
               int32_t w,
               int32_t h,
               int32_t dx,
               int32_t dy,
               int32_t opacity) override {
        calls += "opacity ";
        AppImage::blend(src, sx, sy, w, h, dx, dy, opacity);
    }

    std::string take() {
        std::string taken;
        taken.swap(calls);
        return taken;
    }

private:
    std::string calls;
};

}  // namespace

TEST(AppImage, aNewOneIsEmptyAndNotOpaque) {
    AppImage image;
    EXPECT_EQ(0, image.w);
    EXPECT_EQ(0, image.h);
    EXPECT_EQ(nullptr, image.pixels);
    EXPECT_FALSE(image.opaque);
    image.set(0xFFFFFFFFu);
    image.premult();
    image.unpremult();
}

TEST(AppImage, rowsFollowOneAnotherWithoutPadding) {
    AppImage image(3, 2, 0u);
    image.set(0x11223344u, 1, 1);
    EXPECT_EQ(6, length(image.pixels));
    EXPECT_EQ(0x11223344u, image.pixels[4]);
    EXPECT_EQ(0x11223344u, image.get(1, 1));
}

TEST(AppImage, aCopyHasThePixelsButNotTheOpaqueMark) {
    AppImage image(2, 2, 0x12345678u);
    image.opaque = true;
    AppImage copy(&image);
    EXPECT_EQ(pixelsOf(image), pixelsOf(copy));
    EXPECT_NE(image.pixels, copy.pixels);
    EXPECT_FALSE(copy.opaque);
    AppImage empty;
    AppImage copyOfEmpty(&empty);
    EXPECT_EQ(0, copyOfEmpty.w);
}

TEST(AppImage, reshapingToAsManyPixelsKeepsThem) {
    AppImage image(6, 2, 0x01020304u);
    const uint32_t* before = image.pixels;
    image.allocate(3, 4);
    EXPECT_EQ(before, image.pixels);
    EXPECT_EQ(3, image.w);
    EXPECT_EQ(4, image.h);
    EXPECT_EQ(0x01020304u, image.get(2, 3));
    image.allocate(3, 5);
    EXPECT_EQ(15, length(image.pixels));
}

TEST(AppImage, aSizeBelowOneEmptiesTheImageAndLeavesTheArray) {
    AppImage image(2, 2, 0x01020304u);
    uint32_t* array = image.writableRows(0, 2);
    image.allocate(0, 5);
    EXPECT_EQ(0, image.w);
    EXPECT_EQ(0, image.h);
    EXPECT_EQ(nullptr, image.pixels);
    EXPECT_EQ(0x01020304u, array[3]);
    deleteArrFunc(array);
    AppImage negative(5, -1);
    EXPECT_EQ(0, negative.w);
}

TEST(AppImage, morePixelsThanAnArrayCountsGiveAnEmptyImage) {
    AppImage image(2, 2, 0u);
    image.allocate(1 << 16, 1 << 16);
    EXPECT_EQ(0, image.w);
    EXPECT_EQ(0, image.h);
    EXPECT_EQ(nullptr, image.pixels);
    image.allocate(kMaxArrayLength, 1);
    EXPECT_EQ(kMaxArrayLength, image.w);
}

TEST(AppImage, aColourWithoutAlphaLeavesItAndAnOpaqueOneOverwrites) {
    AppImage image(2, 1, 0x80402010u);
    image.blend(0x00FFFFFFu, 0, 0, 1, 1);
    EXPECT_EQ(0x80402010u, image.get(0, 0));
    image.blend(0xFF010203u, 0, 0, 1, 1);
    EXPECT_EQ(0xFF010203u, image.get(0, 0));
    EXPECT_EQ(0x80402010u, image.get(1, 0));
}

TEST(AppImage, premultiplyingKeepsWhiteAndBlackensTheTransparent) {
    AppImage image(4, 1);
    image.set(0xFFFFFFFFu, 0, 0);
    image.set(0x00FFFFFFu, 1, 0);
    image.set(0x80FF8001u, 2, 0);
    image.set(0x01FFFF7Fu, 3, 0);
    image.premult();
    // 129 * 255 >> 8 = 128, 129 * 128 >> 8 = 64, 129 >> 8 = 0; 2 * 255 >> 8 = 1, 2 * 127 >> 8 = 0
    EXPECT_EQ((std::vector<uint32_t>{0xFFFFFFFF, 0x00000000, 0x80804000, 0x01010100}),
              pixelsOf(image));
}

TEST(AppImage, theTwoPremultiplicationsDiffer) {
    AppImage image(1, 1, 0x80FF4001u);
    image.premult();
    EXPECT_EQ(0x80802000u, image.get(0, 0));
    EXPECT_EQ(0x80802000u, AppImage::premult(0x80FF4001u));
    AppImage other(1, 1, 0x7F030303u);
    other.premult();  // 128 * 3 >> 8 = 1
    EXPECT_EQ(0x7F010101u, other.get(0, 0));
    EXPECT_EQ(0x7F010101u, AppImage::premult(0x7F030303u));  // 381 / 255 = 1
    AppImage third(1, 1, 0x7F020202u);
    third.premult();  // 128 * 2 >> 8 = 1
    EXPECT_EQ(0x7F010101u, third.get(0, 0));
    EXPECT_EQ(0x7F000000u, AppImage::premult(0x7F020202u));  // 254 / 255 = 0
}

TEST(AppImage, premultipliedColoursDivideBy255) {
    EXPECT_EQ(0xFF123456u, AppImage::premult(0xFF123456u));
    EXPECT_EQ(0x00000000u, AppImage::premult(0x00123456u));
    EXPECT_EQ(0xFEFE7F00u, AppImage::premult(0xFEFF8000u));  // 254 * 128 / 255 = 127
}

TEST(AppImage, unpremultiplyingDividesByAlphaAndLeavesTheEndsAlone) {
    AppImage image(4, 1);
    image.set(0x00112233u, 0, 0);
    image.set(0xFF112233u, 1, 0);
    image.set(0x80402001u, 2, 0);
    image.set(0x01000100u, 3, 0);
    image.unpremult();
    // 255 * 64 / 128 = 127, 255 * 32 / 128 = 63, 255 / 128 = 1; 255 * 1 / 1 = 255
    EXPECT_EQ((std::vector<uint32_t>{0x00112233, 0xFF112233, 0x807F3F01, 0x0100FF00}),
              pixelsOf(image));
}

TEST(AppImage, wholeImagePremultiplicationMatchesTheModelForEveryAlphaAndLevel) {
    AppImage image(256, 256);
    for (uint32_t i = 0; i < 65536; i++) {
        image.writableRows(0, image.h)[i] =
            (i & 255) << 24 | (i >> 8) << 16 | (255 - (i >> 8)) << 8 | (i >> 8);
    }
    const auto before = pixelsOf(image);
    image.premult();
    for (size_t i = 0; i < before.size(); i++) {
        const auto a = static_cast<int32_t>(before[i] >> 24);
        const uint32_t colour =
            model::each(before[i], [a](int32_t c) { return (a + 1) * c / 256; }) & 0xFFFFFF;
        ASSERT_EQ((before[i] & 0xFF000000) | colour, image.pixels[i]);
    }
}

TEST(AppImage, anOpaqueSourceIsCopiedWhateverItsAlpha) {
    AppImage src(2, 2, 0x40102030u);
    src.opaque = true;
    AppImage dst(2, 2, 0xFFFFFFFFu);
    dst.blend(&src, 0, 0, 2, 2, 0, 0);
    EXPECT_EQ(pixelsOf(src), pixelsOf(dst));
}

TEST(AppImage, theOpacityBlendLooksAtAlphaEvenIfTheSourceIsOpaque) {
    AppImage src(1, 1, 0x40102030u);
    src.opaque = true;
    AppImage dst(1, 1, 0xFFFFFFFFu);
    dst.blend(&src, 0, 0, 1, 1, 0, 0, 255);
    EXPECT_EQ(model::over(0xFFFFFFFF, 0x40102030, 255), dst.get(0, 0));
    EXPECT_NE(0x40102030u, dst.get(0, 0));
}

TEST(AppImage, opacityEndsAtNothingAndAtThePlainBlend) {
    AppImage src(1, 1, 0x40102030u);
    Watched dst(1, 1, 0xFF808080u);
    dst.blend(&src, 0, 0, 1, 1, 0, 0, 0);
    dst.blend(&src, 0, 0, 1, 1, 0, 0, -5);
    EXPECT_EQ(0xFF808080u, dst.get(0, 0));
    EXPECT_EQ("opacity opacity ", dst.take());
    dst.blend(&src, 0, 0, 1, 1, 0, 0, 256);
    EXPECT_EQ("opacity plain ", dst.take());
    dst.blend(&src, 0, 0, 1, 1, 0, 0, 255);
    EXPECT_EQ("opacity ", dst.take());
}

TEST(AppImage, operationsReachOneAnotherThroughTheirSlots) {
    AppImage src(2, 2, 0x80402010u);
    Watched dst(2, 2, 0xFF808080u);
    dst.blend(0xFF123456u, 0, 0, 1, 1);
    EXPECT_EQ("colour fill ", dst.take());
    PixProps props(256, 256, 128);
    dst.blend(0xFF123456u, 0, 0, 1, 1, &props);
    EXPECT_EQ("colour ", dst.take());
    dst.set(&src, 0, 0);
    EXPECT_EQ("copy ", dst.take());
    dst.blend(&src, 0, 0, 1, 1, 0, 0, &props);
    EXPECT_EQ("opacity ", dst.take());
    props.setDefault();
    dst.blend(&src, 0, 0, 1, 1, 0, 0, &props);
    EXPECT_EQ("plain ", dst.take());
    dst.blend(&src, 0, 0, 1, 1, 0, 0, nullptr);
    EXPECT_EQ("plain ", dst.take());
    props.set(255, 256, 256);
    dst.blend(&src, 0, 0, 1, 1, 0, 0, &props);
    EXPECT_EQ("", dst.take());
    src.opaque = true;
    dst.blend(&src, 0, 0, 1, 1, 0, 0);
    EXPECT_EQ("plain copy ", dst.take());
}

TEST(AppImage, copyingMovesARectangleOrEverything) {
    AppImage src(3, 3);
    for (int32_t i = 0; i < 9; i++) {
        src.writableRows(0, src.h)[i] = static_cast<uint32_t>(i);
    }
    AppImage dst(4, 4, 99u);
    dst.set(&src, 1, 1, 2, 2, 0, 2);
    EXPECT_EQ((std::vector<uint32_t>{99, 99, 99, 99, 99, 99, 99, 99, 4, 5, 99, 99, 7, 8, 99, 99}),
              pixelsOf(dst));
    dst.set(&src, 1, 0);
    EXPECT_EQ((std::vector<uint32_t>{99, 0, 1, 2, 99, 3, 4, 5, 4, 6, 7, 8, 7, 8, 99, 99}),
              pixelsOf(dst));
    AppImage same(3, 3, 0u);
    same.set(&src);
    EXPECT_EQ(pixelsOf(src), pixelsOf(same));
}

TEST(AppImage, aRectangleMovesWithinItsOwnImage) {
    for (const int32_t dy : {0, 1, 2}) {
        AppImage image(5, 5);
        for (int32_t i = 0; i < 25; i++) {
            image.writableRows(0, image.h)[i] = static_cast<uint32_t>(i);
        }
        AppImage before(&image);
        AppImage expected(&image);
        expected.set(&before, 1, 1, 3, 3, 2, dy);
        image.set(&image, 1, 1, 3, 3, 2, dy);
        EXPECT_EQ(pixelsOf(expected), pixelsOf(image)) << dy;
    }
}

TEST(AppImage, fillingARectangleLeavesTheRest) {
    AppImage image(3, 2, 1u);
    image.set(7u, 1, 0, 2, 1);
    EXPECT_EQ((std::vector<uint32_t>{1, 7, 7, 1, 1, 1}), pixelsOf(image));
    image.set(9u);
    EXPECT_EQ((std::vector<uint32_t>{9, 9, 9, 9, 9, 9}), pixelsOf(image));
}

TEST(AppImage, rectanglesWithoutPixelsDoNothing) {
    AppImage src(2, 2, 0xFF112233u);
    AppImage dst(2, 2, 5u);
    PixProps grey(300, 0, 200);
    for (const int32_t h : {0, -1}) {
        dst.set(9u, 0, 0, 2, h);
        dst.set(&src, 0, 0, h, 2, 0, 0);
        dst.blend(0x80000000u, 0, 0, h, 2);
        dst.blend(0xFF000000u, 0, 0, h, 2);
        dst.blend(&src, 0, 0, 2, h, 0, 0);
        dst.blend(&src, 0, 0, 2, h, 0, 0, 128);
        dst.blend(&src, 0, 0, 2, h, 0, 0, &grey);
        dst.blend(0xFFFFFFFFu, &src, 0, 0, 2, h, 0, 0, nullptr);
    }
    EXPECT_EQ((std::vector<uint32_t>{5, 5, 5, 5}), pixelsOf(dst));
}

TEST(AppImage, rectanglesWithoutPixelsMayLieBesideThePicture) {
    AppImage src(2, 2, 0x80112233u);
    AppImage opaque(2, 2, 0xFF112233u);
    opaque.opaque = true;
    AppImage dst(2, 2, 5u);
    PixProps grey(300, 0, 200);
    const std::pair<int32_t, int32_t> sizes[] = {{0, 1}, {0, 2}, {1, 0}, {2, 0}, {0, 0}};
    for (const int32_t at : {-100, -1, 2, 3, 100}) {
        for (const auto& [w, h] : sizes) {
            dst.set(9u, at, at, w, h);
            dst.blend(0x80000000u, at, at, w, h);
            dst.blend(0xFF000000u, at, at, w, h);
            dst.blend(0x80000000u, at, at, w, h, &grey);
            for (AppImage* source : {&src, &opaque}) {
                dst.set(source, at, at, w, h, at, at);
                dst.blend(source, at, at, w, h, at, at);
                dst.blend(source, at, at, w, h, at, at, 128);
                dst.blend(source, at, at, w, h, at, at, &grey);
                dst.blend(0xFFFFFFFFu, source, at, at, w, h, at, at, nullptr);
            }
        }
    }
    EXPECT_EQ((std::vector<uint32_t>{5, 5, 5, 5}), pixelsOf(dst));
}

TEST(AppImage, textNamesHashAndSize) {
    AppImage image(12, 3);
    char expected[80];
    std::snprintf(expected, sizeof expected, "AppImage %x: w = 12, h = 3",
                  static_cast<uint32_t>(image.hashCode()));
    std::unique_ptr<Osp::Base::String> text(image.toString());
    EXPECT_EQ(expected, text->ToUtf8());
}
