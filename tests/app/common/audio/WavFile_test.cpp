// SPDX-License-Identifier: MIT
// Sounds are loaded and saved exactly, and a damaged or failing file does no other harm.
#include "AudioSupport.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"
#include "FileInputStream.h"
#include "FileOutputStream.h"
#include "OspIo.h"
#include "TestHost.h"
#include "WavFile.h"
#include "WavProps.h"

#include <gtest/gtest.h>

using audio::Array;
using audio::Samples;
using Bytes = std::vector<signed char>;

namespace {

class WavFileTest : public testing::Test {
protected:
    Samples load(const Bytes& bytes) {
        const Array<signed char> array = audio::toArray(bytes);
        ByteArrayInputStream stream(array.get());
        const Array<int32_t> loaded(
            WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
        isNull = loaded == nullptr;
        return isNull ? Samples() : audio::toVector(loaded.get());
    }

    Bytes save(const Samples& samples) {
        ByteArrayOutputStream stream;
        EXPECT_TRUE(WavFile::save8Khz(&stream, audio::toArray(samples).get(), headerBuffer.get(),
                                      sampleBuffer.get()));
        const Array<signed char> bytes(stream.toByteArray());
        return audio::toVector(bytes.get());
    }

    Array<signed char> headerBuffer{newArray<signed char>(WavProps::kHeaderBytes)};
    Array<signed char> sampleBuffer{newArray<signed char>(20480)};
    bool isNull = false;
};

/// A file of these samples; if claimed is given, its header has that count.
Bytes file(int32_t rateHz, const Samples& samples, int32_t claimed = -1) {
    const auto count = static_cast<int32_t>(samples.size());
    const Array<signed char> header(WavProps(claimed < 0 ? count : claimed, rateHz).toByteArray());
    Bytes bytes = audio::toVector(header.get());
    for (const int32_t sample : samples) {
        bytes.push_back(static_cast<signed char>(sample));
        bytes.push_back(static_cast<signed char>(sample >> 8));
    }
    return bytes;
}

/// Returns one byte at each read, as a slow device might.
class TricklingStream : public ByteArrayInputStream {
public:
    using ByteArrayInputStream::ByteArrayInputStream;
    using InputStream::read;

    int32_t read(signed char* target, int32_t off, int32_t len) override {
        return ByteArrayInputStream::read(target, off,
                                          off == 0 && len == WavProps::kHeaderBytes ? len : 1);
    }
};

/// Fails at the given read, as a damaged disk does.
class FailingStream : public ByteArrayInputStream {
public:
    FailingStream(signed char* bytes, int32_t readsUntilItFails)
        : ByteArrayInputStream(bytes)
        , readsLeft(readsUntilItFails) {}

    using InputStream::read;

    int32_t read(signed char* target, int32_t off, int32_t len) override {
        return --readsLeft <= 0 ? -1 : ByteArrayInputStream::read(target, off, len);
    }

    bool hasFailed() override { return readsLeft <= 0; }

private:
    int32_t readsLeft;
};

/// A stream that reports more available bytes than it has.
class BoastingStream : public ByteArrayInputStream {
public:
    using ByteArrayInputStream::ByteArrayInputStream;

    int32_t available() override { return ByteArrayInputStream::available() + 1000; }

    int32_t read(signed char* target, int32_t off, int32_t len) override {
        const int32_t there = ByteArrayInputStream::available();
        return there == 0 ? 0 : ByteArrayInputStream::read(target, off, std::min(there, len));
    }
};

}  // namespace

TEST_F(WavFileTest, eightKilohertzLoadsSampleForSample) {
    EXPECT_EQ((Samples{0, 1, -1, 32767, -32768, 255, -256}),
              load(file(8000, {0, 1, -1, 32767, -32768, 255, -256})));
}

TEST_F(WavFileTest, sixteenKilohertzLoadsTheFlooredMeansOfPairs) {
    EXPECT_EQ((Samples{-1, 3}), load(file(16000, {-1, 0, 3, 4, 9})));
    EXPECT_EQ((Samples{32767, -32768}), load(file(16000, {32767, 32767, -32768, -32768})));
}

TEST_F(WavFileTest, everyChunkBorderIsCrossedWithoutALoss) {
    for (const int32_t count : {10239, 10240, 10241, 20481, 40961}) {
        const Samples samples = audio::noise(count, 32000);
        EXPECT_EQ(samples, load(file(8000, samples)));
        Samples means;
        for (size_t i = 0; i + 1 < samples.size(); i += 2) {
            means.push_back((samples[i] + samples[i + 1]) >> 1);
        }
        EXPECT_EQ(means, load(file(16000, samples)));
    }
}

TEST_F(WavFileTest, streamThatTricklesLoadsTheSame) {
    const Samples samples = audio::noise(100, 32000);
    const Array<signed char> bytes = audio::toArray(file(8000, samples));
    TricklingStream stream(bytes.get());
    const Array<int32_t> loaded(
        WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
    EXPECT_EQ(samples, audio::toVector(loaded.get()));
}

TEST_F(WavFileTest, fmtChunkOfOtherSizeStillLoadsFromByte44) {
    Bytes bytes = file(8000, {5, 6});
    bytes[16] = 18;
    EXPECT_EQ((Samples{5, 6}), load(bytes));
}

TEST_F(WavFileTest, otherRatesAreNoSound) {
    for (const int32_t rateHz : {11025, 0, -8000, 7999, 44100}) {
        load(file(rateHz, {1, 2}));
        EXPECT_TRUE(isNull) << rateHz;
    }
}

TEST_F(WavFileTest, shortHeaderIsNoSoundWhateverTheBufferHolds) {
    EXPECT_EQ((Samples{1, 2}), load(file(8000, {1, 2})));  // the buffer now holds a good header
    Bytes bytes = file(8000, {});
    bytes.resize(43);
    load(bytes);
    EXPECT_TRUE(isNull);
    load({});
    EXPECT_TRUE(isNull);
}

TEST_F(WavFileTest, headerAloneIsASoundOfNoSamples) {
    EXPECT_EQ(Samples(), load(file(8000, {})));
    EXPECT_FALSE(isNull);
    EXPECT_EQ(Samples(), load(file(8000, {}, 10)));
    EXPECT_FALSE(isNull);
}

TEST_F(WavFileTest, shortDataEndsWithTheFile) {
    EXPECT_EQ((Samples{1, 2, 3}), load(file(8000, {1, 2, 3}, 10)));
    EXPECT_EQ((Samples{1, 3}), load(file(16000, {1, 2, 3, 4, 5}, 10)));
}

TEST_F(WavFileTest, halfASampleAtTheEndIsDropped) {
    Bytes bytes = file(8000, {1, 2}, 10);
    bytes.push_back(9);
    EXPECT_EQ((Samples{1, 2}), load(bytes));
}

TEST_F(WavFileTest, dataAfterTheClaimedEndIsNotLoaded) {
    EXPECT_EQ((Samples{1, 2}), load(file(8000, {1, 2, 3, 4}, 2)));
}

TEST_F(WavFileTest, absurdSizesLoadWhatIsThere) {
    Bytes bytes = file(8000, {1, 2});
    bytes[43] = 0x7F;  // more than 2 thousand million bytes
    EXPECT_EQ((Samples{1, 2}), load(bytes));
}

TEST_F(WavFileTest, negativeSizesAreASoundOfNoSamples) {
    Bytes bytes = file(16000, {1, 2});
    bytes[43] = -1;
    EXPECT_EQ(Samples(), load(bytes));
    EXPECT_FALSE(isNull);
}

TEST_F(WavFileTest, oddSizesLoadTheWholeSamples) {
    Bytes bytes = file(8000, {1, 2, 3});
    bytes[40] = 5;
    EXPECT_EQ((Samples{1, 2}), load(bytes));
}

TEST_F(WavFileTest, streamThatEndsBeforeItSaidIsCutThere) {
    const Array<signed char> bytes = audio::toArray(file(8000, {7, 8, 9}, 400));
    BoastingStream stream(bytes.get());
    const Array<int32_t> loaded(
        WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
    EXPECT_EQ((Samples{7, 8, 9}), audio::toVector(loaded.get()));
}

TEST_F(WavFileTest, streamThatFailsIsNoSound) {
    const Array<signed char> bytes = audio::toArray(file(8000, audio::noise(10240 + 7, 1000)));
    for (const int32_t nth : {1, 2, 3}) {  // header, 10240 samples, the rest
        FailingStream stream(bytes.get(), nth);
        EXPECT_EQ(nullptr, WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()))
            << nth;
    }
    FailingStream stream(bytes.get(), 4);
    const Array<int32_t> loaded(
        WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
    EXPECT_EQ(10247, length(loaded.get()));
}

TEST_F(WavFileTest, fileThatCannotBeReadOrMeasuredIsNoSound) {
    TestHost host;
    host.mappedFolders.home = testing::TempDir();
    const Osp::Base::String path("/Home/WavFileTest.wav");
    const Array<int32_t> samples = audio::toArray(audio::noise(20000, 1000));
    {
        FileOutputStream stream(path);
        ASSERT_TRUE(
            WavFile::save8Khz(&stream, samples.get(), headerBuffer.get(), sampleBuffer.get()));
    }
    const auto loads = [&] {
        FileInputStream stream(path);
        const Array<int32_t> loaded(
            WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
        return loaded == nullptr ? -1 : length(loaded.get());
    };
    EXPECT_EQ(20000, loads());
    for (const auto& [operation, calls] : {std::pair{"File.Read", 3}, std::pair{"File.Seek", 2}}) {
        for (int32_t nth = 1; nth <= calls; nth++) {
            host.failNth(operation, nth);
            EXPECT_EQ(-1, loads()) << operation << " " << nth;
        }
    }
    EXPECT_EQ(20000, loads());
    Osp::Io::File::Remove(path);
}

TEST_F(WavFileTest, savingWritesTheHeaderAndLittleEndianSamples) {
    EXPECT_EQ(file(8000, {1, -2, 0x1234}), save({1, -2, 0x1234}));
}

TEST_F(WavFileTest, samplesOutsideSixteenBitsWrapWhenSaved) {
    EXPECT_EQ((Samples{40000 - 65536, 32767, 0}), load(save({40000, -32769, 65536})));
}

TEST_F(WavFileTest, savedSoundsLoadAsTheyWere) {
    for (const int32_t count : {0, 1, 10239, 10240, 10241, 480001}) {
        const Samples samples = audio::noise(count, 32767);
        EXPECT_EQ(samples, load(save(samples)));
    }
}

TEST_F(WavFileTest, everyFailedWriteToAFileIsReported) {
    TestHost host;
    host.mappedFolders.home = testing::TempDir();
    const Osp::Base::String path("/Home/WavFileTest.wav");
    const Array<int32_t> samples = audio::toArray(audio::noise(20000, 1000));
    const auto saves = [&] {
        FileOutputStream stream(path);
        return WavFile::save8Khz(&stream, samples.get(), headerBuffer.get(), sampleBuffer.get());
    };
    EXPECT_TRUE(saves());
    for (const char* operation : {"File.Construct", "File.Write", "File.Flush"}) {
        host.failNth(operation, 1);
        EXPECT_FALSE(saves()) << operation;
    }
    for (const int32_t nth : {2, 3}) {  // header, 10240 samples, the rest
        host.failNth("File.Write", nth);
        EXPECT_FALSE(saves()) << nth;
    }
    EXPECT_TRUE(saves());
    Osp::Io::File::Remove(path);
}

TEST_F(WavFileTest, missingFileIsNoSound) {
    TestHost host;
    host.mappedFolders.home = testing::TempDir();
    FileInputStream stream(Osp::Base::String("/Home/nothing of this name.wav"));
    EXPECT_EQ(nullptr, WavFile::loadTo8Khz(&stream, headerBuffer.get(), sampleBuffer.get()));
}

TEST_F(WavFileTest, lostByteIsReported) {
    ByteArrayOutputStream stream;
    stream.close();
    EXPECT_FALSE(WavFile::save8Khz(&stream, audio::toArray(Samples{1, 2}).get(), headerBuffer.get(),
                                   sampleBuffer.get()));
}
