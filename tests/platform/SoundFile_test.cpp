#include "SoundFile.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <sys/stat.h>

using Samples = TestSounds::Samples;

namespace {

Samples sine(int32_t rateHz, double hz, int32_t count) {
    Samples samples;
    for (int32_t i = 0; i < count; i++) {
        samples.push_back(static_cast<int16_t>(
            std::lround(16000 * std::sin(2 * std::numbers::pi * hz * i / rateHz))));
    }
    return samples;
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
    EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, read));
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
    EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, read));
    EXPECT_EQ((Samples{200, -6, 32767, -32768}), read);
}

TEST(SoundFile, otherRatesAreConverted) {
    const TestFolders folders;
    for (const int32_t rateHz : {8000, 11025, 22050, 44100, 48000}) {
        folders.write("voice.wav", TestSounds::wav(sine(rateHz, 440, rateHz), rateHz));
        Samples read;
        EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, read));
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
        const std::string wrong = SoundFile::read(folders.path(name), 16000, read);
        EXPECT_NE(std::string::npos, wrong.find(name)) << wrong;
    }
    EXPECT_EQ(Samples{1}, read);
}

TEST(SoundFile, whatIsNoOrdinaryFileIsRefusedAtOnce) {
    const TestFolders folders;
    ASSERT_EQ(0, mkfifo(folders.path("pipe.wav").c_str(), 0600));
    Samples read{1};
    EXPECT_EQ("the sound \"" + folders.path("pipe.wav") + "\" cannot be read: it is a pipe",
              SoundFile::read(folders.path("pipe.wav"), 16000, read));
    EXPECT_EQ("the sound \"" + folders.path("") + "\" cannot be read: it is a folder",
              SoundFile::read(folders.path(""), 16000, read));
    EXPECT_EQ("the sound \"/dev/zero\" cannot be read: it is a device",
              SoundFile::read("/dev/zero", 16000, read));
    EXPECT_EQ(Samples{1}, read);
}

TEST(SoundFile, aHeaderThatPromisesTooMuchIsReadAsFarAsTheFileGoes) {
    const TestFolders folders;
    folders.write("voice.wav", TestSounds::header(0x3FFFFFFF, 16000) + TestSounds::bytes({1, 2}));
    Samples read;
    EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, read));
    EXPECT_EQ((Samples{1, 2}), read);
}

TEST(SoundFile, theSlowestRateIsReadAndTheNextSlowerOneRefusedByName) {
    const TestFolders folders;
    folders.write("voice.wav", TestSounds::wav({1, 2, 3, 4}, 62));
    Samples read;
    EXPECT_EQ("the sound \"" + folders.path("voice.wav") +
                  "\" has 1 channel at 62 Hz; at most 8 channels at 63 to 384000 Hz can be used",
              SoundFile::read(folders.path("voice.wav"), 16000, read));
    folders.write("voice.wav", TestSounds::wav({1, 2, 3, 4}, 63));
    EXPECT_EQ("", SoundFile::read(folders.path("voice.wav"), 16000, read));
}

TEST(SoundFile, writesThePlainForm) {
    const TestFolders folders;
    const Samples samples = TestSounds::noise(100);
    EXPECT_EQ("", SoundFile::write(folders.path("out.wav"), 8000, samples));
    EXPECT_EQ(TestSounds::wav(samples, 8000), folders.read("out.wav"));
    EXPECT_NE("", SoundFile::write(folders.path("missing/out.wav"), 8000, samples));
}
