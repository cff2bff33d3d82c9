// SPDX-License-Identifier: MIT
// PNG files are decoded as libpng does, and damaged ones do no harm.
#include "ArrFunc.h"
#include "png2native.h"
#include "TestPng.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

const std::string kPictures = MURMELO_TEST_DATA "/../../res/Res";

/// What the decoder returns, freed at the end. Also checks, for any file, that its size is the same
/// when it is read without decoding.
class Decoded {
public:
    explicit Decoded(const Bytes& file)
        : status(png2native(file.data(),
                            static_cast<int32_t>(file.size()),
                            &pixels,
                            &alpha,
                            &width,
                            &height,
                            &hasAlpha)) {
        int32_t sizeWidth = -7;
        int32_t sizeHeight = -7;
        const bool isPicture =
            pngSize(file.data(), static_cast<int32_t>(file.size()), &sizeWidth, &sizeHeight);
        EXPECT_EQ(status == 0, isPicture);
        EXPECT_EQ(width, sizeWidth);
        EXPECT_EQ(height, sizeHeight);
    }

    Decoded(const Decoded&) = delete;
    Decoded& operator=(const Decoded&) = delete;

    ~Decoded() {
        deleteArrFunc(pixels);
        deleteArrFunc(alpha);
    }

    std::vector<int32_t> allPixels() const { return {pixels, pixels + length(pixels)}; }

    std::vector<int32_t> allAlpha() const { return {alpha, alpha + length(alpha)}; }

    uint16_t* pixels = nullptr;
    uint8_t* alpha = nullptr;
    int32_t width = -7;
    int32_t height = -7;
    bool hasAlpha = true;
    int32_t status;
};

uint16_t to565(uint32_t argb) {
    return static_cast<uint16_t>(((argb >> 16) & 255) / 8 * 2048 + ((argb >> 8) & 255) / 4 * 32 +
                                 (argb & 255) / 8);
}

/// Checks that the pixels are those of libpng, cut to 565, and that there is an alpha plane exactly
/// if one is needed.
void expectAsLibpng(const Bytes& file) {
    const TestPicture expected = TestPng::read(file);
    ASSERT_FALSE(expected.argb.empty());
    const Decoded decoded(file);
    ASSERT_EQ(0, decoded.status);
    ASSERT_EQ(expected.w, decoded.width);
    ASSERT_EQ(expected.h, decoded.height);
    ASSERT_EQ(decoded.hasAlpha, decoded.alpha != nullptr);
    ASSERT_EQ(static_cast<int32_t>(expected.argb.size()), length(decoded.pixels));
    for (size_t i = 0; i < expected.argb.size(); i++) {
        ASSERT_EQ(to565(expected.argb[i]), decoded.pixels[i]) << "pixel " << i;
        ASSERT_EQ(expected.argb[i] >> 24, decoded.hasAlpha ? decoded.alpha[i] : 255U)
            << "pixel " << i;
    }
}

void expectAsLibpng(const TestPngSpec& spec, bool alphaPlane) {
    SCOPED_TRACE("type " + std::to_string(spec.colorType) + " depth " + std::to_string(spec.depth) +
                 " filter " + std::to_string(spec.filter) + " size " + std::to_string(spec.w) +
                 "x" + std::to_string(spec.h));
    const Bytes file = TestPng::write(spec);
    expectAsLibpng(file);
    EXPECT_EQ(alphaPlane, Decoded(file).hasAlpha);
}

const Bytes kPlte = TestPng::chunk("PLTE", {255, 0, 0, 0, 255, 0, 0, 0, 255});
constexpr int32_t kRed = 0xF800;
constexpr int32_t kGreen = 0x07E0;
constexpr int32_t kBlue = 0x001F;

/// Four palette pixels 0, 1, 2, 3 of 8 bits, without signature.
Bytes fourPalettePixels() {
    return TestPng::header(4, 1, 8, 3) +
           TestPng::chunk("IDAT", TestPng::compressed({0, 0, 1, 2, 3})) +
           TestPng::chunk("IEND", {});
}

/// Compares every PNG file of a folder with libpng. Returns how many there were.
int32_t expectFolderAsLibpng(const std::string& folder) {
    int32_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".png") {
            SCOPED_TRACE(entry.path().string());
            std::ifstream in(entry.path(), std::ios::binary);
            expectAsLibpng(Bytes(std::istreambuf_iterator<char>(in), {}));
            count++;
        }
    }
    return count;
}

}  // namespace

TEST(png2native, everyPaletteDepthAndFilterDecodesAsLibpngDoes) {
    for (const int32_t depth : {1, 2, 4, 8}) {
        for (int32_t filter = -1; filter <= 4; filter++) {
            for (const int32_t w : {1, 3, 7, 8, 9, 31, 240}) {
                TestPngSpec spec = {.w = w, .h = 5, .colorType = 3, .depth = depth};
                spec.filter = filter;
                expectAsLibpng(spec, false);
                spec.transparentEntries = depth == 8 ? 200 : 2;
                spec.seed = 11;
                expectAsLibpng(spec, true);
            }
        }
    }
}

TEST(png2native, everyRgbAndRgbaDepthAndFilterDecodesAsLibpngDoes) {
    for (const int32_t colorType : {2, 6}) {
        for (const int32_t depth : {8, 16}) {
            for (int32_t filter = -1; filter <= 4; filter++) {
                for (const int32_t w : {1, 2, 3, 17, 64}) {
                    TestPngSpec spec = {.w = w, .h = 9, .colorType = colorType, .depth = depth};
                    spec.filter = filter;
                    expectAsLibpng(spec, colorType == 6);
                }
            }
        }
    }
}

TEST(png2native, everyPictureOfTheApplicationDecodesAsLibpngDoes) {
    EXPECT_EQ(28, expectFolderAsLibpng(kPictures));
}

// Made with ImageMagick: palettes of every depth with and without holes, both RGB depths with and
// without alpha, each of its filter choices, a comment.
TEST(png2native, filesOfAnotherWriterDecodeAsLibpngDoes) {
    EXPECT_EQ(19, expectFolderAsLibpng(MURMELO_TEST_DATA "/png"));
}

TEST(png2native, anyNumberOfImageDataChunksDecodesTheSame) {
    for (const int32_t idatBytes : {6, 7, 100, 8192}) {
        TestPngSpec spec = {.w = 40, .h = 30, .colorType = 6, .depth = 8};
        spec.idatBytes = idatBytes;
        expectAsLibpng(spec, true);
    }
}

TEST(png2native, twoImageDataChunksEqualTheirConcatenation) {
    const Bytes stream = TestPng::compressed({0, 1, 2, 3, 4, 5, 6, 0, 7, 8, 9, 10, 11, 12});
    const Bytes start = TestPng::signature() + TestPng::header(2, 2, 8, 2);
    const Decoded one(start + TestPng::chunk("IDAT", stream));
    for (size_t cut = 0; cut <= stream.size(); cut++) {
        const auto middle = stream.begin() + static_cast<int64_t>(cut);
        const Decoded two(start + TestPng::chunk("IDAT", Bytes(stream.begin(), middle)) +
                          TestPng::chunk("IDAT", Bytes(middle, stream.end())));
        EXPECT_EQ(one.allPixels(), two.allPixels());
    }
}

TEST(png2native, dataThatIsNoPngIsRefused) {
    Bytes file = TestPng::signature();
    const Decoded eightBytes(file);
    EXPECT_EQ(-1, eightBytes.status);
    EXPECT_EQ(nullptr, eightBytes.pixels);
    EXPECT_EQ(0, eightBytes.width);
    EXPECT_FALSE(eightBytes.hasAlpha);
    for (size_t i = 0; i < 8; i++) {
        Bytes broken = file + Bytes(20);
        broken[i] ^= 1;
        EXPECT_EQ(-1, Decoded(broken).status) << i;
    }
}

TEST(png2native, aFileWithoutHeaderIsAnEmptyPicture) {
    const Decoded decoded(TestPng::signature() + Bytes(1));
    EXPECT_EQ(0, decoded.status);
    EXPECT_EQ(0, decoded.width);
    EXPECT_EQ(0, length(decoded.pixels));
}

TEST(png2native, aHeaderOfAnotherLengthIsLeftOut) {
    Bytes data = TestPng::header(1, 1, 8, 2);
    data = Bytes(data.begin() + 8, data.end() - 4) + Bytes(1);  // 14 bytes
    const Decoded decoded(TestPng::signature() + TestPng::chunk("IHDR", data));
    EXPECT_EQ(0, decoded.width);
}

TEST(png2native, opaqueTransparencyTableLeavesNoAlphaPlane) {
    const Decoded decoded(TestPng::signature() + kPlte + TestPng::chunk("tRNS", {255, 255, 255}) +
                          fourPalettePixels());
    EXPECT_FALSE(decoded.hasAlpha);
    EXPECT_EQ(nullptr, decoded.alpha);
    EXPECT_EQ(kGreen, decoded.pixels[1]);
}

TEST(png2native, aShortTransparencyTableLeavesTheOtherEntriesOpaque) {
    const Decoded decoded(TestPng::signature() + kPlte + TestPng::chunk("tRNS", {7, 254}) +
                          fourPalettePixels());
    EXPECT_TRUE(decoded.hasAlpha);
    EXPECT_EQ((std::vector<int32_t>{7, 254, 255, 255}), decoded.allAlpha());
}

TEST(png2native, indicesBeyondThePaletteAreOpaqueBlack) {
    const Decoded decoded(TestPng::signature() + kPlte + TestPng::chunk("tRNS", {7, 8, 9, 10}) +
                          fourPalettePixels());
    EXPECT_EQ((std::vector<int32_t>{kRed, kGreen, kBlue, 0}), decoded.allPixels());
    EXPECT_EQ((std::vector<int32_t>{7, 8, 9, 255}), decoded.allAlpha());
}

TEST(png2native, aPaletteThatIsNoMultipleOfThreeIsLeftOut) {
    const Decoded decoded(TestPng::signature() + TestPng::chunk("PLTE", {255, 0, 0, 0}) +
                          fourPalettePixels());
    EXPECT_EQ((std::vector<int32_t>{0, 0, 0, 0}), decoded.allPixels());
}

TEST(png2native, aPaletteOfMoreThan256EntriesIsCut) {
    const Decoded decoded(TestPng::signature() + TestPng::chunk("PLTE", Bytes(3 * 300, 255)) +
                          fourPalettePixels());
    EXPECT_EQ(0xFFFF, decoded.pixels[3]);
}

TEST(png2native, rgbaKeepsItsAlphaPlaneEvenIfOpaque) {
    const Decoded decoded(TestPng::file(1, 1, 8, 6, {0, 255, 0, 0, 255}));
    EXPECT_TRUE(decoded.hasAlpha);
    EXPECT_EQ((std::vector<int32_t>{255}), decoded.allAlpha());
}

TEST(png2native, rgbIgnoresATransparentColour) {
    const Decoded decoded(TestPng::signature() + TestPng::header(1, 1, 8, 2) +
                          TestPng::chunk("tRNS", {0, 1, 0, 2, 0, 3}) +
                          TestPng::chunk("IDAT", TestPng::compressed({0, 1, 2, 3})));
    EXPECT_FALSE(decoded.hasAlpha);
    EXPECT_EQ(nullptr, decoded.alpha);
}

TEST(png2native, sixteenBitSamplesKeepTheirHighByte) {
    const Decoded decoded(
        TestPng::file(1, 1, 16, 6, {0, 0xF8, 0xFF, 0x00, 0xFF, 0x08, 0xFF, 0x7F, 0xFF}));
    EXPECT_EQ(0xF801, decoded.pixels[0]);
    EXPECT_EQ(0x7F, decoded.alpha[0]);
}

TEST(png2native, greyComesOutBlack) {
    for (const int32_t depth : {1, 2, 4, 8, 16}) {
        const TestPngSpec spec = {.w = 13, .h = 4, .colorType = 0, .depth = depth};
        const Decoded decoded(TestPng::write(spec));
        EXPECT_EQ(std::vector<int32_t>(13 * 4, 0), decoded.allPixels());
        EXPECT_FALSE(decoded.hasAlpha);
    }
}

TEST(png2native, greyWithAlphaIsNotDecoded) {
    const TestPngSpec spec = {.w = 3, .h = 2, .colorType = 4, .depth = 8};
    const Decoded decoded(TestPng::write(spec));
    EXPECT_EQ(0, decoded.status);
    EXPECT_EQ(std::vector<int32_t>(6, 0), decoded.allPixels());
    EXPECT_FALSE(decoded.hasAlpha);
}

TEST(png2native, depthsThatNoTypeHasLeaveThePixelsBlack) {
    const Bytes rows = TestPng::chunk("IDAT", TestPng::compressed(Bytes(64, 1)));
    for (const int32_t colorType : {0, 2, 3, 6}) {
        for (const int32_t depth : {0, 3, 5, 12, 17, 255}) {
            const Decoded decoded(TestPng::signature() + kPlte +
                                  TestPng::header(2, 2, depth, colorType) + rows);
            EXPECT_EQ(std::vector<int32_t>(4, 0), decoded.allPixels()) << depth;
        }
    }
}

TEST(png2native, rowsAreCutToWholeBytesBeforeTheChannelsAreCounted) {
    EXPECT_EQ(1 + 1, pngRowBytes(0, 12, 1));  // a row of the file has two bytes of samples
    EXPECT_EQ(1 + 0, pngRowBytes(0, 7, 1));
    EXPECT_EQ(1 + 3 * 0, pngRowBytes(2, 1, 4));
    EXPECT_EQ(1 + 3 * 5, pngRowBytes(2, 5, 8));
    EXPECT_EQ(1 + 3 * 10, pngRowBytes(2, 5, 16));
    EXPECT_EQ(1 + 4 * 3, pngRowBytes(6, 7, 4));
    EXPECT_EQ(1 + 4 * 7, pngRowBytes(6, 7, 8));
    EXPECT_EQ(1 + 2, pngRowBytes(3, 9, 1));
    EXPECT_EQ(1 + 1, pngRowBytes(3, 2, 4));
    EXPECT_EQ(0, pngRowBytes(4, 9, 8));
    EXPECT_EQ(0, pngRowBytes(1, 9, 8));
}

TEST(png2native, interlacedFilesAreReadAsIfTheyWereNot) {
    TestPngSpec spec = {.w = 9, .h = 9, .colorType = 2, .depth = 8};
    spec.interlaced = true;
    Bytes file = TestPng::write(spec);
    const Decoded interlaced(file);
    ASSERT_EQ(1, file[28]);
    file[28] = 0;
    const Decoded straight(file);
    EXPECT_EQ(straight.allPixels(), interlaced.allPixels());
    EXPECT_NE(std::vector<int32_t>(81, 0), straight.allPixels());
}

TEST(png2native, filterBytesAboveFourLeaveTheRow) {
    const Decoded decoded(TestPng::file(1, 2, 8, 2, {5, 255, 0, 0, 255, 0, 0, 255}));
    EXPECT_EQ((std::vector<int32_t>{kRed, kBlue}), decoded.allPixels());
}

TEST(png2native, aShortStreamLeavesTheRestZero) {
    const Decoded decoded(TestPng::file(1, 3, 8, 6, {0, 255, 0, 0, 200, 0, 0, 255}));
    EXPECT_EQ((std::vector<int32_t>{kRed, kGreen, 0}), decoded.allPixels());
    EXPECT_EQ((std::vector<int32_t>{200, 0, 0}), decoded.allAlpha());
}

TEST(png2native, aStreamThatIsTooLongIsCut) {
    const Decoded decoded(TestPng::file(1, 1, 8, 2, Bytes(5000, 0)));
    EXPECT_EQ((std::vector<int32_t>{0}), decoded.allPixels());
}

TEST(png2native, aDamagedStreamGivesTheRowsBeforeTheDamage) {
    // two stored blocks; the second announces a length that its complement denies
    const Bytes stream = {0x78, 0x01, 0x00, 4, 0, 0xFB, 0xFF, 0,   255, 0,
                          0,    0x01, 4,    0, 0, 0,    0,    255, 255, 255};
    const Decoded decoded(TestPng::signature() + TestPng::header(1, 2, 8, 2) +
                          TestPng::chunk("IDAT", stream));
    EXPECT_EQ(0, decoded.status);
    EXPECT_EQ((std::vector<int32_t>{kRed, 0}), decoded.allPixels());
}

TEST(png2native, aPictureWithoutImageDataIsBlack) {
    const Decoded decoded(TestPng::signature() + TestPng::header(2, 1, 8, 2));
    EXPECT_EQ((std::vector<int32_t>{0, 0}), decoded.allPixels());
}

TEST(png2native, nothingAfterTheEndChunkCounts) {
    const Decoded decoded(TestPng::signature() + TestPng::header(1, 1, 8, 2) +
                          TestPng::chunk("IEND", {}) + TestPng::header(9, 9, 8, 2));
    EXPECT_EQ(1, decoded.width);
}

TEST(png2native, otherChunksAreSkipped) {
    const Decoded decoded(TestPng::signature() + TestPng::chunk("gAMA", {0, 0, 1, 1}) +
                          TestPng::header(1, 1, 8, 2) + TestPng::chunk("tEXt", Bytes(99, 'x')) +
                          TestPng::chunk("IDAT", TestPng::compressed({0, 255, 0, 0})));
    EXPECT_EQ(kRed, decoded.pixels[0]);
}

TEST(png2native, everyTruncationOfAFileIsSafe) {
    TestPngSpec spec = {.w = 11, .h = 7, .colorType = 3, .depth = 4};
    spec.transparentEntries = 3;
    const Bytes whole = TestPng::write(spec);
    for (size_t n = 0; n < whole.size(); n++) {
        // an allocation of its own, so that the sanitizer sees a byte too far
        const Bytes cut(whole.begin(), whole.begin() + static_cast<int64_t>(n));
        const Decoded decoded(cut);
        EXPECT_EQ(n < 9 ? -1 : 0, decoded.status);
        EXPECT_EQ(n < 33 - 4 ? 0 : 11, decoded.width) << n;  // the header's sum may be missing
    }
}

TEST(png2native, truncatedImageDataCountsAsFarAsItGoes) {
    Bytes rows;
    for (int32_t i = 0; i < 300; i++) {
        rows = rows + Bytes{0, static_cast<unsigned char>(i * 37), 255, 255};
    }
    Bytes file = TestPng::file(1, 300, 8, 2, rows);
    const Decoded whole(file);
    const Decoded half(Bytes(file.begin(), file.end() - 200));
    EXPECT_EQ(whole.pixels[0], half.pixels[0]);
    EXPECT_NE(0, whole.pixels[299]);
    EXPECT_EQ(0, half.pixels[299]);
}

TEST(png2native, hostileChunkLengthsAreHeldAgainstTheData) {
    for (const int32_t first : {0x7F, 0x80, 0xFF}) {
        for (const char* type : {"IDAT", "PLTE", "tRNS", "IHDR", "zzzz"}) {
            Bytes chunk = TestPng::chunk(type, {1, 2, 3});
            chunk[0] = static_cast<unsigned char>(first);
            const Decoded decoded(TestPng::signature() + TestPng::header(1, 1, 8, 3) + chunk);
            EXPECT_EQ((std::vector<int32_t>{0}), decoded.allPixels());
        }
    }
}

TEST(png2native, sizesBeyondTheCapAreRefused) {
    EXPECT_EQ(-1, Decoded(TestPng::signature() + TestPng::header(2049, 2048, 8, 4)).status);
    EXPECT_EQ(0, Decoded(TestPng::signature() + TestPng::header(2048, 2048, 8, 4)).status);
    EXPECT_EQ(-1, Decoded(TestPng::signature() + TestPng::header(0x10000, 0x10000, 8, 6)).status);
    EXPECT_EQ(-1, Decoded(TestPng::signature() + TestPng::header(-1, -1, 8, 6)).status);
    EXPECT_EQ(-1, Decoded(TestPng::signature() + TestPng::header(-5, 0, 8, 6)).status);
    const Decoded flat(TestPng::signature() + TestPng::header(0x7FFFFFFF, 0, 8, 6));
    EXPECT_EQ(0, flat.status);
    EXPECT_EQ(0, length(flat.pixels));
}
