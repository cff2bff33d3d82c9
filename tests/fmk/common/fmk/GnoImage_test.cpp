// SPDX-License-Identifier: MIT
// Device images are decoded, copied, turned and read back as 565 with their alpha.
#include "ArrFunc.h"
#include "ByteArrayInputStream.h"
#include "GnoGraphics.h"
#include "GnoImage.h"
#include "TestPng.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using ImagePointer = std::unique_ptr<GnoImage>;

ImagePointer decode(const Bytes& file, int32_t offset = 0) {
    return ImagePointer(GnoImage::createImage(reinterpret_cast<const signed char*>(file.data()),
                                              offset, static_cast<int32_t>(file.size()) - offset));
}

/// All pixels of the image as straight ARGB words.
std::vector<uint32_t> words(const GnoImage* image) {
    std::vector<uint32_t> out(static_cast<size_t>(image->getWidth() * image->getHeight()));
    image->getRGB(out.data(), 0, image->getWidth(), 0, 0, image->getWidth(), image->getHeight());
    return out;
}

// Colours that 565 keeps, one for each place of a picture of 3 x 2.
constexpr uint32_t kPicture[6] = {0xFF080000, 0xFE100000, 0xFD180000,
                                  0xFC200000, 0xFB280000, 0xFA300000};

ImagePointer picture() {
    return ImagePointer(GnoImage::createRGBImage(kPicture, 3, 2, true));
}

/// The picture's words by their place: 0 1 2 in the first row, 3 4 5 in the second.
std::vector<uint32_t> places(const std::vector<size_t>& order) {
    std::vector<uint32_t> out;
    for (const size_t place : order) {
        out.push_back(kPicture[place]);
    }
    return out;
}

}  // namespace

TEST(GnoImage, decodesAPngFromAnyOffset) {
    const Bytes file = Bytes(5, 9) + TestPng::file(1, 1, 8, 6, {0, 255, 0, 0, 40});
    const ImagePointer image = decode(file, 5);
    EXPECT_EQ(1, image->getWidth());
    EXPECT_EQ(1, image->getHeight());
    EXPECT_TRUE(image->isTransparent());
    EXPECT_FALSE(image->isMutable());
    EXPECT_EQ((std::vector<uint32_t>{0x28F80000}), words(image.get()));
}

TEST(GnoImage, anythingButAPngIsAnEmptyImage) {
    for (const Bytes& file :
         {Bytes{}, Bytes{1, 'P', 'N'}, Bytes(40, 'G'), Bytes{1, 'P', 'N', 'G'}}) {
        const ImagePointer image = decode(file);
        EXPECT_EQ(0, image->getWidth());
        EXPECT_EQ(0, image->getHeight());
        EXPECT_FALSE(image->isTransparent());
    }
}

TEST(GnoImage, readsAStreamToItsEnd) {
    const TestPngSpec spec = {.w = 70, .h = 60, .colorType = 6, .depth = 8};  // some 10 KB
    const Bytes file = TestPng::write(spec);
    ASSERT_GT(file.size(), 4096U);
    auto* bytes = newArray<signed char>(static_cast<int32_t>(file.size()));
    std::copy(file.begin(), file.end(), bytes);
    ByteArrayInputStream in(bytes);
    const ImagePointer image(GnoImage::createImage(&in));
    EXPECT_EQ(words(decode(file).get()), words(image.get()));
    deleteArrFunc(bytes);
}

TEST(GnoImage, aNewImageIsMutableAndWhite) {
    const ImagePointer image(GnoImage::createImage(2, 2));
    EXPECT_TRUE(image->isMutable());
    EXPECT_FALSE(image->isTransparent());
    EXPECT_EQ(std::vector<uint32_t>(4, 0xFFF8FCF8), words(image.get()));
}

TEST(GnoImage, sizesThatNoImageHasGiveAnEmptyOne) {
    for (const int32_t w : {0, -1, 0x10000}) {
        const ImagePointer image(GnoImage::createImage(w, 0x10000));
        EXPECT_EQ(0, image->getWidth());
        EXPECT_EQ(0, image->getHeight());
        EXPECT_EQ(nullptr, image->getPixels());
    }
}

TEST(GnoImage, wordsComeBackCutTo565WithTheirAlpha) {
    const uint32_t argb[3] = {0x00FFFFFF, 0x80123456, 0xFF070307};
    const ImagePointer image(GnoImage::createRGBImage(argb, 3, 1, true));
    EXPECT_TRUE(image->isTransparent());
    EXPECT_EQ((std::vector<uint32_t>{0x00F8FCF8, 0x80103450, 0xFF000000}), words(image.get()));
}

TEST(GnoImage, withoutAlphaProcessingEveryWordIsOpaque) {
    const uint32_t argb[2] = {0x00FFFFFF, 0x80123456};
    const ImagePointer image(GnoImage::createRGBImage(argb, 2, 1, false));
    EXPECT_FALSE(image->isTransparent());
    EXPECT_EQ((std::vector<uint32_t>{0xFFF8FCF8, 0xFF103450}), words(image.get()));
}

TEST(GnoImage, anImageOfOpaqueWordsStillHasItsAlphaPlane) {
    const uint32_t argb = 0xFF000000;
    const ImagePointer image(GnoImage::createRGBImage(&argb, 1, 1, true));
    EXPECT_TRUE(image->isTransparent());
}

TEST(GnoImage, aCopyIsImmutableAndKeepsTransparency) {
    const ImagePointer image = picture();
    const ImagePointer copy(GnoImage::createImage(image.get()));
    EXPECT_FALSE(copy->isMutable());
    EXPECT_EQ(words(image.get()), words(copy.get()));
    EXPECT_NE(image->getPixels(), copy->getPixels());
}

TEST(GnoImage, regionsAreCopiedMirroredAndTurned) {
    // by hand: a quarter turn clockwise brings the lower left corner to the upper left one
    const std::vector<std::vector<size_t>> kOrders = {
        {0, 1, 2, 3, 4, 5}, {3, 4, 5, 0, 1, 2}, {2, 1, 0, 5, 4, 3}, {5, 4, 3, 2, 1, 0},
        {0, 3, 1, 4, 2, 5}, {3, 0, 4, 1, 5, 2}, {2, 5, 1, 4, 0, 3}, {5, 2, 4, 1, 3, 0}};
    const ImagePointer image = picture();
    for (int32_t transform = 0; transform < 8; transform++) {
        const ImagePointer turned(GnoImage::createImage(image.get(), 0, 0, 3, 2, transform));
        EXPECT_EQ(transform < 4 ? 3 : 2, turned->getWidth()) << transform;
        EXPECT_EQ(places(kOrders[static_cast<size_t>(transform)]), words(turned.get()))
            << transform;
    }
}

TEST(GnoImage, partOfAnImageIsCopied) {
    const ImagePointer image = picture();
    const ImagePointer part(GnoImage::createImage(image.get(), 1, 0, 2, 2, 2));
    EXPECT_EQ(places({2, 1, 5, 4}), words(part.get()));
}

TEST(GnoImage, regionsThatReachOutsideAreEmpty) {
    const ImagePointer image = picture();
    const int32_t kRegions[][4] = {{-1, 0, 2, 2}, {0, -1, 2, 2}, {2, 0, 2, 2},
                                   {0, 1, 2, 2},  {0, 0, 0, 2},  {1, 0, 0x7FFFFFFF, 1}};
    for (const auto& r : kRegions) {
        const ImagePointer part(GnoImage::createImage(image.get(), r[0], r[1], r[2], r[3], 0));
        EXPECT_EQ(0, part->getWidth());
    }
    const ImagePointer unknown(GnoImage::createImage(image.get(), 0, 0, 3, 2, 8));
    EXPECT_EQ(0, unknown->getWidth());
}

TEST(GnoImage, getRgbTakesEndCoordinatesAndRowsApart) {
    const ImagePointer image = picture();
    std::vector<uint32_t> out(12, 7);
    image->getRGB(out.data(), 1, 4, 1, 1, 3, 2);  // columns 1 and 2 of row 1
    std::vector<uint32_t> expected(12, 7);
    expected[1] = kPicture[4];
    expected[2] = kPicture[5];
    EXPECT_EQ(expected, out);
}

TEST(GnoImage, getRgbLeavesOutWhatTheImageDoesNotHave) {
    const ImagePointer image = picture();
    std::vector<uint32_t> out(20, 7);
    image->getRGB(out.data(), 0, 5, -1, -1, 40, 40);
    std::vector<uint32_t> expected(20, 7);
    for (size_t i = 0; i < 3; i++) {
        expected[5 + 1 + i] = kPicture[i];
        expected[10 + 1 + i] = kPicture[3 + i];
    }
    EXPECT_EQ(expected, out);
}

TEST(GnoImage, aPictureWithoutColumnsIsReadAtOnceWhateverItsHeight) {
    const ImagePointer image = decode(TestPng::signature() + TestPng::header(0, 0x7FFFFFFF, 8, 6));
    EXPECT_EQ(0x7FFFFFFF, image->getHeight());
    for (int32_t round = 0; round < 1000; round++) {  // row by row this would take many minutes
        image->getRGB(nullptr, 0, 0, 0, 0, image->getWidth(), image->getHeight());
    }
}

TEST(GnoImage, theAlphaPlaneCanBeReplacedAndTakenAway) {
    const ImagePointer image = picture();
    auto* plane = newArray<uint8_t>(6);
    plane[5] = 9;
    image->setAlpha(plane);
    EXPECT_EQ(0x09300000U, words(image.get())[5]);
    image->setAlpha(nullptr);
    EXPECT_FALSE(image->isTransparent());
    EXPECT_EQ(0xFF300000U, words(image.get())[5]);
}

TEST(GnoImage, itsGraphicsDrawIntoItsPixels) {
    const ImagePointer image(GnoImage::createImage(3, 2));
    const std::unique_ptr<GnoGraphics> g(image->getGraphics());
    EXPECT_EQ(3, g->getClipWidth());
    EXPECT_EQ(2, g->getClipHeight());
    g->setColor(0x080000);
    g->fillRect(2, 1, 9, 9);
    EXPECT_EQ((std::vector<uint32_t>{0xFFF8FCF8, 0xFFF8FCF8, 0xFFF8FCF8, 0xFFF8FCF8, 0xFFF8FCF8,
                                     0xFF080000}),
              words(image.get()));
}

TEST(GnoImage, aPictureOfNoSizeIsEmpty) {
    const ImagePointer none(GnoImage::createRGBImage(kPicture, -3, 2, true));
    EXPECT_EQ(0, none->getWidth());
    EXPECT_EQ(0, none->getHeight());
}
