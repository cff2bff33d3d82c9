// SPDX-License-Identifier: MIT
// Plain WAV files of every width and rate become takes; others are refused.
#include "PlainWav.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using Samples = TestSounds::Samples;

namespace {

/// A WAV file of one format, chunk by chunk.
class File {
public:
    File()
        : bytes{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'} {}

    File& chunk(const char* name, const std::vector<uint8_t>& content) {
        bytes.insert(bytes.end(), name, name + 4);
        number(static_cast<uint32_t>(content.size()), 4, bytes);
        bytes.insert(bytes.end(), content.begin(), content.end());
        if (content.size() % 2 != 0) {
            bytes.push_back(0);
        }
        return *this;
    }

    File& format(uint32_t kind, uint32_t channels, uint32_t rateHz, uint32_t bits) {
        std::vector<uint8_t> content;
        number(kind, 2, content);
        number(channels, 2, content);
        number(rateHz, 4, content);
        number(rateHz * channels * bits / 8, 4, content);
        number(channels * bits / 8, 2, content);
        number(bits, 2, content);
        return chunk("fmt ", content);
    }

    Samples read() const { return PlainWav::read(bytes.data(), bytes.size()); }

    static void number(uint32_t value, int32_t count, std::vector<uint8_t>& out) {
        for (int32_t i = 0; i < count; i++) {
            out.push_back(static_cast<uint8_t>(value >> (8 * i)));
        }
    }

    std::vector<uint8_t> bytes;
};

}  // namespace

TEST(PlainWav, sixteenBitsAtTheTakesRateComeAsTheyAre) {
    const Samples samples = {0, 1, -1, 32767, -32768, 1234};
    std::vector<uint8_t> data;
    for (const int16_t sample : samples) {
        File::number(static_cast<uint16_t>(sample), 2, data);
    }
    EXPECT_EQ(samples, File().format(1, 1, 16000, 16).chunk("data", data).read());
}

TEST(PlainWav, readsWhatItWritesAndWhatTheProgramWrites) {
    const Samples samples = TestSounds::noise(1000);
    const std::vector<uint8_t> file = PlainWav::toFile(samples.data(), 1000, 16000);
    EXPECT_EQ(samples, PlainWav::read(file.data(), file.size()));
    const std::string expected = TestSounds::wav(samples, 16000);
    EXPECT_EQ(expected, std::string(file.begin(), file.end()));
}

TEST(PlainWav, aKeptTakeIsReadWholeAndNothingElseIsATake) {
    const Samples late = TestSounds::noise(321600);  // 20.1 s
    std::vector<uint8_t> file = PlainWav::toFile(late.data(), 321600, 16000);
    EXPECT_EQ(late, PlainWav::readTake(file.data(), file.size()));
    EXPECT_EQ(320000U, PlainWav::read(file.data(), file.size()).size());
    EXPECT_EQ(Samples(), PlainWav::readTake(file.data(), file.size() - 2)) << "cut short";
    EXPECT_EQ(Samples(), PlainWav::readTake(file.data(), 43));
    file[24] = 0x40;  // of another rate
    EXPECT_EQ(Samples(), PlainWav::readTake(file.data(), file.size()));
}

TEST(PlainWav, saysIfThereIsMoreThanATakeHolds) {
    for (const bool isLonger : {false, true}) {
        const int32_t count = 20 * 16000 + (isLonger ? 1 : 0);
        const Samples samples = TestSounds::noise(count);
        const std::vector<uint8_t> file = PlainWav::toFile(samples.data(), count, 16000);
        bool isCut = !isLonger;
        EXPECT_EQ(320000U, PlainWav::read(file.data(), file.size(), &isCut).size());
        EXPECT_EQ(isLonger, isCut);
        isCut = !isLonger;
        // The beginning of the file, with all that a take holds.
        EXPECT_EQ(
            320000U,
            PlainWav::readBeginning(file.data(), TestSounds::kHeaderBytes + 640000, &isCut).size());
        EXPECT_EQ(isLonger, isCut);
    }
}

TEST(PlainWav, everyWidthMeansTheSameLoudness) {
    // A quarter of full scale, half of it negative, in each width.
    EXPECT_EQ((Samples{8192, -16384}),
              File().format(1, 1, 16000, 8).chunk("data", {160, 64}).read());
    EXPECT_EQ((Samples{8192, -16384}),
              File().format(1, 1, 16000, 24).chunk("data", {0, 0, 0x20, 0, 0, 0xC0}).read());
    EXPECT_EQ((Samples{8192, -16384}),
              File().format(1, 1, 16000, 32).chunk("data", {0, 0, 0, 0x20, 0, 0, 0, 0xC0}).read());
    std::vector<uint8_t> floats(8);
    const float values[] = {0.25F, -0.5F};
    std::memcpy(floats.data(), values, 8);
    EXPECT_EQ((Samples{8192, -16384}), File().format(3, 1, 16000, 32).chunk("data", floats).read());
}

TEST(PlainWav, channelsBecomeTheirMean) {
    EXPECT_EQ((Samples{300}),
              File().format(1, 2, 16000, 16).chunk("data", {100, 0, 500 & 255, 500 >> 8}).read());
}

TEST(PlainWav, otherChunksAreSkippedAlsoOfOddLength) {
    EXPECT_EQ((Samples{7}), File()
                                .chunk("LIST", {1, 2, 3})
                                .format(1, 1, 16000, 16)
                                .chunk("cue ", {})
                                .chunk("data", {7, 0})
                                .read());
}

TEST(PlainWav, theRealFormatOfAnExtensibleFileCounts) {
    File file;
    std::vector<uint8_t> content;
    File::number(0xFFFE, 2, content);
    File::number(1, 2, content);
    File::number(16000, 4, content);
    File::number(32000, 4, content);
    File::number(2, 2, content);
    File::number(16, 2, content);
    content.resize(24);
    File::number(1, 2, content);
    content.resize(40);
    EXPECT_EQ((Samples{7}), file.chunk("fmt ", content).chunk("data", {7, 0}).read());
}

TEST(PlainWav, anotherRateIsConverted) {
    const Samples samples(8000, 1000);
    const std::vector<uint8_t> file = PlainWav::toFile(samples.data(), 8000, 8000);
    const Samples take = PlainWav::read(file.data(), file.size());
    ASSERT_EQ(16000U, take.size());
    EXPECT_NEAR(1000, take[8000], 1);
}

TEST(PlainWav, twentySecondsAreRead) {
    const Samples samples(16000 * 25, 5);
    const std::vector<uint8_t> file =
        PlainWav::toFile(samples.data(), static_cast<int32_t>(samples.size()), 16000);
    EXPECT_EQ(320000U, PlainWav::read(file.data(), file.size()).size());
}

TEST(PlainWav, aFileThatIsCutShortCountsAsFarAsItGoes) {
    const Samples samples = TestSounds::noise(100);
    const std::vector<uint8_t> file = PlainWav::toFile(samples.data(), 100, 16000);
    EXPECT_EQ(TestSounds::part(samples, 0, 50),
              PlainWav::read(file.data(), TestSounds::kHeaderBytes + 101));
    for (size_t bytes = 0; bytes < 46; bytes++) {
        EXPECT_TRUE(PlainWav::read(file.data(), bytes).empty()) << bytes;
    }
}

TEST(PlainWav, theBeginningOfAFileIsEnoughIfTwentySecondsAreInIt) {
    const std::string wav = TestSounds::wav(TestSounds::noise(400000), 16000);
    const auto* bytes = reinterpret_cast<const uint8_t*>(wav.data());
    constexpr size_t kTakeBytes = TestSounds::kHeaderBytes + 640000;
    EXPECT_EQ(PlainWav::read(bytes, wav.size()), PlainWav::readBeginning(bytes, kTakeBytes));
    EXPECT_EQ(Samples(), PlainWav::readBeginning(bytes, kTakeBytes - 2));
    EXPECT_EQ(319999U, PlainWav::read(bytes, kTakeBytes - 2).size()) << "a whole file, cut short";
    const std::string brief = TestSounds::wav(TestSounds::noise(1000), 16000) + "LIST....and so on";
    EXPECT_EQ(TestSounds::noise(1000),
              PlainWav::readBeginning(reinterpret_cast<const uint8_t*>(brief.data()), 2050))
        << "what goes on is no sound";
}

TEST(PlainWav, whatIsNoPlainSoundIsRefused) {
    const std::vector<uint8_t> data(64, 1);
    EXPECT_TRUE(File().format(2, 1, 16000, 16).chunk("data", data).read().empty()) << "compressed";
    EXPECT_TRUE(File().format(1, 0, 16000, 16).chunk("data", data).read().empty()) << "no channel";
    EXPECT_TRUE(File().format(1, 9, 16000, 16).chunk("data", data).read().empty()) << "nine";
    EXPECT_TRUE(File().format(1, 1, 16000, 12).chunk("data", data).read().empty()) << "12 bits";
    EXPECT_TRUE(File().format(3, 1, 16000, 16).chunk("data", data).read().empty())
        << "16-bit float";
    EXPECT_TRUE(File().format(1, 1, 7999, 16).chunk("data", data).read().empty()) << "too slow";
    EXPECT_TRUE(File().format(1, 1, 192001, 16).chunk("data", data).read().empty()) << "too fast";
    EXPECT_TRUE(File().chunk("data", data).read().empty()) << "no format";
    EXPECT_TRUE(File().format(1, 1, 16000, 16).read().empty()) << "no data";
    EXPECT_TRUE(File().format(1, 1, 16000, 16).chunk("data", {}).read().empty()) << "no samples";
}

TEST(PlainWav, whatIsNotANumberIsSilenceAndWhatIsTooLoudIsClamped) {
    const float values[] = {NAN, 2.0F, -2.0F, INFINITY};
    EXPECT_EQ((Samples{0, 32767, -32768, 32767}), PlainWav::toTake(values, 4, 16000));
}

TEST(PlainWav, aTakeNeedsASampleAndAPossibleRate) {
    const float values[] = {0.5F};
    EXPECT_TRUE(PlainWav::toTake(values, 0, 16000).empty());
    EXPECT_TRUE(PlainWav::toTake(values, 1, 0).empty());
    EXPECT_TRUE(PlainWav::toTake(values, 1, 300000).empty());
}
