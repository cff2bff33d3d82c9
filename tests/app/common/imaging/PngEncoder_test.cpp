// SPDX-License-Identifier: MIT
// PNG files of the encoder are read back by libpng, and their blocks and sums are right.
#include "ArrFunc.h"
#include "PngEncoder.h"
#include "TestFolders.h"
#include "TestPng.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace {

std::vector<uint32_t> noise(int32_t count, uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<uint32_t> words(static_cast<size_t>(count));
    for (uint32_t& word : words) {
        word = static_cast<uint32_t>(random());
    }
    return words;
}

Bytes encoded(const std::vector<uint32_t>& argb, int32_t w, int32_t h) {
    PngEncoder encoder;
    EXPECT_TRUE(encoder.setImageData(argb.data(), w, h));
    const signed char* bytes = encoder.encode();
    return Bytes(bytes, bytes + encoder.getLength());
}

/// Checks that libpng, which verifies every sum, reads back the colours, all opaque.
void expectReadBack(int32_t w, int32_t h) {
    SCOPED_TRACE(std::to_string(w) + " x " + std::to_string(h));
    std::vector<uint32_t> argb = noise(w * h, 3);
    const TestPicture picture = TestPng::read(encoded(argb, w, h));
    EXPECT_EQ(w, picture.w);
    EXPECT_EQ(h, picture.h);
    for (uint32_t& word : argb) {
        word |= 0xFF000000;
    }
    EXPECT_EQ(argb, picture.argb);
}

uint32_t at32(const Bytes& file, size_t position) {
    return uint32_t{file[position]} << 24 | uint32_t{file[position + 1]} << 16 |
           uint32_t{file[position + 2]} << 8 | file[position + 3];
}

/// The lengths of the stored blocks of a file; checks that they end the stream.
std::vector<size_t> blocks(const Bytes& file) {
    constexpr size_t kData = 8 + 25 + 8;  // signature, header, length and type
    EXPECT_EQ(0x7801U, at32(file, kData) >> 16);
    std::vector<size_t> lengths;
    size_t position = kData + 2;
    bool isLast = false;
    while (!isLast) {
        isLast = file[position] == 1;
        EXPECT_TRUE(isLast || file[position] == 0);
        const size_t length = file[position + 1] + 256U * file[position + 2];
        EXPECT_EQ(0xFFFF - length, file[position + 3] + 256U * file[position + 4]);
        lengths.push_back(length);
        position += 5 + length;
    }
    EXPECT_EQ(at32(file, kData - 8), position + 4 - kData);  // the Adler sum follows
    return lengths;
}

}  // namespace

TEST(PngEncoder, aSinglePixelByHand) {
    const Bytes expected = {0x89, 'P',  'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A,  //
                            0,    0,    0,   13,  'I',  'H',  'D',  'R',  0,    0,    0,
                            1,    0,    0,   0,   1,                             //
                            8,    2,    0,   0,   0,    0x90, 0x77, 0x53, 0xDE,  //
                            0,    0,    0,   15,  'I',  'D',  'A',  'T',         //
                            0x78, 0x01, 1,   4,   0,    0xFB, 0xFF, 0,    0x11, 0x22, 0x33};
    const Bytes file = encoded({0xAA112233}, 1, 1);
    ASSERT_EQ(expected.size() + 4 + 4 + 12, file.size());
    EXPECT_EQ(expected, Bytes(file.begin(), file.begin() + static_cast<int64_t>(expected.size())));
    // low: 1 + 0x11 + 0x22 + 0x33 = 0x67; high: 1 + 0x12 + 0x34 + 0x67 = 0xAE
    EXPECT_EQ(0x00AE0067U, at32(file, expected.size()));
    const Bytes end = {0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82};
    EXPECT_EQ(end, Bytes(file.end() - 12, file.end()));
}

TEST(PngEncoder, libpngReadsBackWhatWasWritten) {
    expectReadBack(1, 1);
    expectReadBack(3, 2);
    expectReadBack(240, 320);
    expectReadBack(1, 1000);
    expectReadBack(1000, 1);
}

TEST(PngEncoder, pngcheckFindsNothingWrong) {
    const TestFolders folders;
    const Bytes file = encoded(noise(240 * 320, 4), 240, 320);
    folders.write("shot.png", std::string(file.begin(), file.end()));
    EXPECT_EQ(0, std::system(("pngcheck -q " + folders.path("shot.png")).c_str()));
    folders.write("cut.png", std::string(file.begin(), file.end() - 20));
    EXPECT_NE(
        0, std::system(
               ("pngcheck -q " + folders.path("cut.png") + " >" + folders.path("output")).c_str()));
}

TEST(PngEncoder, aSinglePixelIsOneBlockOfFourBytes) {
    EXPECT_EQ((std::vector<size_t>{4}), blocks(encoded({0}, 1, 1)));
}

TEST(PngEncoder, rawDataOfExactlyOneBlockIsOneFinalBlock) {
    // 1 + 3 * 341 = 1024 bytes a row, 32 rows: 32768
    EXPECT_EQ((std::vector<size_t>{32768}), blocks(encoded(noise(341 * 32, 1), 341, 32)));
    expectReadBack(341, 32);
}

TEST(PngEncoder, blocksAreCutAt32768Bytes) {
    EXPECT_EQ((std::vector<size_t>{32768, 1024}), blocks(encoded(noise(341 * 33, 1), 341, 33)));
    EXPECT_EQ((std::vector<size_t>{32768, 32768}), blocks(encoded(noise(341 * 64, 1), 341, 64)));
    expectReadBack(341, 33);
    expectReadBack(341, 64);
}

TEST(PngEncoder, alphaNeverReachesTheFile) {
    EXPECT_EQ(encoded({0x00123456, 0x7F654321}, 2, 1), encoded({0xFF123456, 0xFF654321}, 2, 1));
}

TEST(PngEncoder, tallNarrowImagesGrowTheOutput) {
    expectReadBack(1, 5000);  // 5000 filter bytes are more than the slack
    expectReadBack(2, 40000);
}

TEST(PngEncoder, oneEncoderWritesManyImages) {
    const std::vector<uint32_t> large = noise(100, 1);
    const std::vector<uint32_t> small = noise(4, 2);
    PngEncoder encoder;
    ASSERT_TRUE(encoder.setImageData(large.data(), 10, 10));
    encoder.encode();
    ASSERT_TRUE(encoder.setImageData(small.data(), 2, 2));
    const signed char* bytes = encoder.encode();
    EXPECT_EQ(encoded(small, 2, 2), Bytes(bytes, bytes + encoder.getLength()));
    bytes = encoder.encode();  // again
    EXPECT_EQ(encoded(small, 2, 2), Bytes(bytes, bytes + encoder.getLength()));
}

TEST(PngEncoder, sizesWithoutPixelsOrTooLargeAreRefused) {
    PngEncoder encoder;
    const uint32_t pixel = 0;
    EXPECT_FALSE(encoder.setImageData(&pixel, 0, 1));
    EXPECT_FALSE(encoder.setImageData(&pixel, 1, -1));
    EXPECT_FALSE(encoder.setImageData(&pixel, 0x7FFFFFFF, 0x7FFFFFFF));
    EXPECT_FALSE(encoder.setImageData(&pixel, 4096, 2048));
    EXPECT_EQ(nullptr, encoder.encode());
    EXPECT_EQ(0, encoder.getLength());
}

TEST(PngEncoder, checksumsEqualKnownValuesAndContinue) {
    PngEncoder encoder;
    encoder.makeCRCTable();
    for (const char digit : {'1', '2', '3', '4', '5', '6', '7', '8', '9'}) {
        encoder.addByte(static_cast<signed char>(digit));
    }
    EXPECT_EQ(0xCBF43926U, encoder.getCRC(0, 9));
    EXPECT_EQ(0U, encoder.getCRC(4, 4));
    // "abc": 1 + 97 + 98 + 99 = 295; 98 + 196 + 295 = 589
    const signed char text[3] = {'a', 'b', 'c'};
    EXPECT_EQ(589U << 16 | 295U, encoder.updateAdler(1, text, 0, 3));
    EXPECT_EQ(589U << 16 | 295U,
              encoder.updateAdler(encoder.updateAdler(1, text, 0, 2), text, 2, 1));
}

TEST(PngEncoder, theAdlerSumOfLongRunsOf255DoesNotOverflow) {
    const std::vector<signed char> bytes(32768, -1);
    uint64_t low = 1;
    uint64_t high = 0;
    for (size_t i = 0; i < bytes.size(); i++) {
        low = (low + 255) % 65521;
        high = (high + low) % 65521;
    }
    PngEncoder encoder;
    EXPECT_EQ(high << 16 | low, encoder.updateAdler(1, bytes.data(), 0, 32768));
}

TEST(PngEncoder, chunksCarryTheirLength) {
    PngEncoder encoder;
    encoder.makeCRCTable();
    encoder.startChunk('I', 'E', 'N', 'D');
    EXPECT_EQ(8, encoder.getLength());
    encoder.addInt(0x01020304);
    encoder.endChunk();
    EXPECT_EQ(16, encoder.getLength());
}
