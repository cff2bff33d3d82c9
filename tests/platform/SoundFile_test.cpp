// SPDX-License-Identifier: MIT
// Sound files of all kinds are read, converted and written; unusable ones are refused.
#include "SoundFile.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <numbers>
#include <sndfile.h>
#include <sys/stat.h>

using Samples = TestSounds::Samples;

namespace fs = std::filesystem;

namespace {

Samples sine(int32_t rateHz, double hz, int32_t count) {
    Samples samples;
    for (int32_t i = 0; i < count; i++) {
        samples.push_back(static_cast<int16_t>(
            std::lround(16000 * std::sin(2 * std::numbers::pi * hz * i / rateHz))));
    }
    return samples;
}

std::string readWhole(const std::string& path, Samples& samples) {
    return SoundFile::read(path, 16000, INT64_MAX, samples).sentence();
}

/// A WAV file of floats, interleaved.
std::string floatWav(const std::vector<float>& values, int32_t rateHz, int32_t channels) {
    std::string data;
    for (const float value : values) {
        uint32_t word = 0;
        std::memcpy(&word, &value, sizeof word);
        data += TestSounds::little(word, 4);
    }
    const auto rate = static_cast<uint32_t>(rateHz);
    const auto frameBytes = static_cast<uint32_t>(4 * channels);
    const auto size = static_cast<uint32_t>(data.size());
    return "RIFF" + TestSounds::little(36 + size, 4) + "WAVEfmt " + TestSounds::little(16, 4) +
           TestSounds::little(3, 2) + TestSounds::little(static_cast<uint32_t>(channels), 2) +
           TestSounds::little(rate, 4) + TestSounds::little(rate * frameBytes, 4) +
           TestSounds::little(frameBytes, 2) + TestSounds::little(32, 2) + "data" +
           TestSounds::little(size, 4) + data;
}

/// A FLAC file of a few samples whose header claims 2^36 - 1 of them.
std::string boastfulFlac(const TestFolders& folders) {
    SF_INFO info{};
    info.samplerate = 384000;
    info.channels = 1;
    info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(folders.path("plain.flac").c_str(), SFM_WRITE, &info);
    const Samples samples = TestSounds::noise(100);
    sf_write_short(file, samples.data(), 100);
    sf_close(file);
    std::string bytes = folders.read("plain.flac");
    bytes[21] = static_cast<char>(bytes[21] | 0x0F);  // the high bits of the count, after the depth
    return TestSounds::changed(bytes, 22, "\xFF\xFF\xFF\xFF");
}

/// The largest difference, away from the ends where a filter runs in and out.
int32_t difference(const Samples& a, const Samples& b) {
    int32_t largest = 0;
    for (size_t i = 200; i + 200 < std::min(a.size(), b.size()); i++) {
        largest = std::max(largest, std::abs(a[i] - b[i]));
    }
    return largest;
}

}  // namespace

TEST(SoundFile, sixteenBitMonoAtTheWantedRateComesThroughUntouched) {
    const TestFolders folders;
    Samples samples = TestSounds::noise(5000);
    samples.push_back(-32768);
    samples.push_back(32767);
    folders.write("voice.wav", TestSounds::wav(samples, 16000));
    Samples read;
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
    EXPECT_EQ(samples, read);
}

TEST(SoundFile, stereoBecomesTheMeanOfItsChannels) {
    const TestFolders folders;
    const std::string mono =
        TestSounds::wav({100, 300, -5, -7, 32767, 32767, -32768, -32768}, 16000);
    const std::string rates = TestSounds::little(64000, 4) + TestSounds::little(4, 2);
    const std::string wav =
        TestSounds::changed(TestSounds::changed(mono, 22, TestSounds::little(2, 2)), 28, rates);
    folders.write("voice.wav", wav);
    Samples read;
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
    EXPECT_EQ((Samples{200, -6, 32767, -32768}), read);
}

TEST(SoundFile, otherRatesAreConverted) {
    const TestFolders folders;
    for (const int32_t rateHz : {8000, 11025, 22050, 44100, 48000}) {
        folders.write("voice.wav",
                      TestSounds::wav(sine(rateHz, 440, rateHz), static_cast<uint32_t>(rateHz)));
        Samples read;
        EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
        EXPECT_EQ(16000U, read.size()) << rateHz;
        EXPECT_GE(16, difference(sine(16000, 440, 16000), read)) << rateHz;  // one in a thousand
    }
}

TEST(SoundFile, whatIsNoSoundIsRefusedWithItsName) {
    const TestFolders folders;
    folders.write("empty.wav", "");
    folders.write("text.wav", "this is no sound at all, but as long as the header of one would be");
    Samples read{1};
    for (const char* name : {"missing.wav", "empty.wav", "text.wav"}) {
        const std::string error = readWhole(folders.path(name), read);
        EXPECT_NE(std::string::npos, error.find(name)) << error;
    }
    EXPECT_EQ(Samples{1}, read);
}

TEST(SoundFile, whatIsNoOrdinaryFileIsRefusedAtOnce) {
    const TestFolders folders;
    ASSERT_EQ(0, mkfifo(folders.path("pipe.wav").c_str(), 0600));
    Samples read{1};
    EXPECT_EQ("the sound \"" + folders.path("pipe.wav") + "\" cannot be read: it is a pipe",
              readWhole(folders.path("pipe.wav"), read));
    EXPECT_EQ("the sound \"" + folders.path("") + "\" cannot be read: it is a folder",
              readWhole(folders.path(""), read));
    EXPECT_EQ("the sound \"/dev/zero\" cannot be read: it is a device",
              readWhole("/dev/zero", read));
    EXPECT_EQ(Samples{1}, read);
}

TEST(SoundFile, aHeaderThatPromisesTooMuchIsReadAsFarAsTheFileGoes) {
    const TestFolders folders;
    folders.write("voice.wav", TestSounds::header(0x3FFFFFFF, 16000) + TestSounds::bytes({1, 2}));
    Samples read;
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
    EXPECT_EQ((Samples{1, 2}), read);
}

TEST(SoundFile, nothingIsReadAfterTheSamplesWanted) {
    const TestFolders folders;
    const Samples samples = TestSounds::noise(20000);
    folders.write("voice.wav", TestSounds::wav(samples, 16000));
    for (const int64_t wanted : {0, 1, 4096, 5000, 19999, 20000, 20001}) {
        Samples read{1};
        int64_t frames = -1;
        EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, wanted, read, &frames));
        const int64_t there = std::min<int64_t>(wanted, 20000);
        EXPECT_EQ(there, frames);
        EXPECT_EQ(TestSounds::part(samples, 0, static_cast<size_t>(there)), read);
    }
}

TEST(SoundFile, ofTenMinutesAtAnotherRateOnlyTheStartIsRead) {
    const TestFolders folders;
    const Samples start = TestSounds::noise(2 * 44100);
    folders.write("voice.wav", TestSounds::header(600 * 44100, 44100) + TestSounds::bytes(start));
    fs::resize_file(folders.path("voice.wav"),
                    TestSounds::kHeaderBytes + 2 * 600 * 44100);  // silence from there on
    for (const int64_t wanted : {1, 100, 16000, 320000}) {
        Samples read;
        int64_t frames = 0;
        EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, wanted, read, &frames));
        EXPECT_EQ(static_cast<size_t>(wanted), read.size());
        // The frames that the filter needs after the last sample, and the rest of a block.
        EXPECT_GE(wanted * 441 / 160 + 8192, frames);
        EXPECT_LE(wanted * 441 / 160, frames);
    }
}

TEST(SoundFile, theStartOfASoundIsTheStartOfTheWholeConverted) {
    const TestFolders folders;
    for (const int32_t rateHz : {63, 8000, 11025, 44100, 96000}) {
        const Samples samples = TestSounds::noise(2 * rateHz + 7);
        folders.write("voice.wav", TestSounds::wav(samples, static_cast<uint32_t>(rateHz)));
        const Samples whole = SoundFile::resample(samples, rateHz, 16000);
        Samples read;
        EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
        EXPECT_EQ(whole, read) << rateHz;
        EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, 12345, read));
        EXPECT_EQ(TestSounds::part(whole, 0, 12345), read) << rateHz;
    }
}

TEST(SoundFile, floatsBeyondFullScaleAreClampedAndNotANumberIsSilence) {
    const TestFolders folders;
    folders.write("voice.wav", floatWav({0.5F, 2.0F, -2.0F, NAN, INFINITY, -INFINITY, 1e30F, -1e30F,
                                         131072.0F, 0.25F},
                                        16000, 1));
    Samples read;
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
    EXPECT_EQ((Samples{16384, 32767, -32768, 0, 32767, -32768, 32767, -32768, 32767, 8192}), read);
}

TEST(SoundFile, aChannelThatIsNotANumberLeavesTheOthers) {
    const TestFolders folders;
    folders.write("voice.wav", floatWav({0.5F, NAN, NAN, -0.5F, INFINITY, 0.0F}, 16000, 2));
    Samples read;
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
    EXPECT_EQ((Samples{8192, -8192, 32767}), read);
}

TEST(SoundFile, aDamagedFloatReachesNoFurtherThanTheConvertersFilter) {
    const TestFolders folders;
    for (const float damaged : {NAN, INFINITY, -INFINITY, 3e38F}) {
        std::vector<float> values;
        for (int32_t i = 0; i < 44100; i++) {
            values.push_back(0.25F);
        }
        values[22050] = damaged;
        folders.write("voice.wav", floatWav(values, 44100, 1));
        Samples read;
        EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
        ASSERT_EQ(16000U, read.size());
        // A filter that falls by 120 dB within 5 % of the band is 340 samples long, half of it on
        // each side.
        for (const size_t at : {1000U, 7820U, 8180U, 15000U}) {
            EXPECT_NEAR(8192, read[at], 8) << damaged << " at " << at;
        }
        if (std::isnan(damaged)) {  // one silent sample is a faint click, not a gap
            EXPECT_NEAR(8192, read[7980], 200);
            EXPECT_NEAR(8192, read[8020], 200);
        }
    }
}

TEST(SoundFile, aFlacHeaderThatPromisesADayIsReadAsFarAsTheFileGoes) {
    const TestFolders folders;
    folders.write("voice.flac", boastfulFlac(folders));
    Samples read;
    int64_t frames = 0;
    EXPECT_EQ("", SoundFile::read(folders.path("voice.flac"), 384000, 320000, read, &frames));
    EXPECT_EQ(100, frames);
    EXPECT_EQ(TestSounds::noise(100), read);
}

TEST(SoundFile, theSlowestRateIsReadAndTheNextSlowerOneRefusedByName) {
    const TestFolders folders;
    folders.write("voice.wav", TestSounds::wav({1, 2, 3, 4}, 62));
    Samples read;
    EXPECT_EQ("the sound \"" + folders.path("voice.wav") +
                  "\" cannot be read: it has too many channels or an unusual rate (1 channel at 62 "
                  "Hz; at most 8 channels at 63 to 384000 Hz can be used)",
              readWhole(folders.path("voice.wav"), read));
    folders.write("voice.wav", TestSounds::wav({1, 2, 3, 4}, 63));
    EXPECT_EQ("", readWhole(folders.path("voice.wav"), read));
}

TEST(SoundFile, writesThePlainForm) {
    const TestFolders folders;
    const Samples samples = TestSounds::noise(100);
    EXPECT_EQ("", SoundFile::write(folders.path("out.wav"), 8000, samples));
    EXPECT_EQ(TestSounds::wav(samples, 8000), folders.read("out.wav"));
    EXPECT_NE("", SoundFile::write(folders.path("missing/out.wav"), 8000, samples));
}
