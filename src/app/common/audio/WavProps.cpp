// SPDX-License-Identifier: MIT
#include "WavProps.h"

#include "Arithmetic.h"
#include "ArrFunc.h"

#include <array>

namespace {

constexpr int32_t kPcm = 1;
constexpr int32_t kFmtChunkBytes = 16;

// Defects of a header, the numbers that exc() is called with.
constexpr int32_t kShortHeader = 1;
constexpr int32_t kNoRiff = 2;
constexpr int32_t kNoWave = 3;
constexpr int32_t kNoFmt = 4;
constexpr int32_t kOtherFmtSize = 5;
constexpr int32_t kOtherFormat = 6;
constexpr int32_t kNoData = 7;
constexpr int32_t kReadLengthOutOfRange = 9;
constexpr int32_t kNoRoom = 11;
constexpr int32_t kWrittenLengthOutOfRange = 12;

// The bytes of a header that is being written or read. All numbers are little-endian.
class HeaderBytes {
public:
    HeaderBytes() = default;

    explicit HeaderBytes(const signed char* array) {
        const int32_t count =
            length(array) < WavProps::kHeaderBytes ? length(array) : WavProps::kHeaderBytes;
        for (int32_t i = 0; i < count; i++) {
            at(i) = static_cast<uint8_t>(array[i]);
        }
    }

    uint8_t& at(int32_t off) { return bytes[static_cast<size_t>(off)]; }

    void putText(int32_t off, const char* text) {
        for (int32_t i = 0; i < 4; i++) {
            at(off + i) = static_cast<uint8_t>(text[i]);
        }
    }

    bool hasText(int32_t off, const char* text) {
        for (int32_t i = 0; i < 4; i++) {
            if (at(off + i) != static_cast<uint8_t>(text[i])) {
                return false;
            }
        }
        return true;
    }

    void put16(int32_t off, int32_t value) {
        at(off) = static_cast<uint8_t>(value);
        at(off + 1) = static_cast<uint8_t>(value >> 8);
    }

    void put32(int32_t off, int32_t value) {
        put16(off, value);
        put16(off + 2, value >> 16);
    }

    int32_t get16(int32_t off) { return at(off) | at(off + 1) << 8; }

    int32_t get32(int32_t off) { return get16(off) | wrapShl(get16(off + 2), 16); }

private:
    std::array<uint8_t, WavProps::kHeaderBytes> bytes{};
};

}  // namespace

WavProps::WavProps(int32_t sampleCount, int32_t sampleRateHz)
    : WavProps(kPcm, 1, sampleRateHz, wrapMul(2, sampleRateHz), 2, 16, sampleCount) {}

WavProps::WavProps(const WavProps* other)
    : WavProps(other, other->sampleCount) {}

WavProps::WavProps(const WavProps* other, int32_t sampleCount)
    : WavProps(other->audioFormat,
               other->channels,
               other->sampleRateHz,
               other->byteRate,
               other->blockAlignBytes,
               other->bitsPerSample,
               sampleCount) {}

WavProps::WavProps(const WavProps* other, int32_t sampleCount, int32_t sampleRateHz)
    : WavProps(other->audioFormat,
               other->channels,
               sampleRateHz,
               wrapMul(2, sampleRateHz),
               other->blockAlignBytes,
               other->bitsPerSample,
               sampleCount) {}

WavProps::WavProps(int32_t audioFormat,
                   int32_t channels,
                   int32_t sampleRateHz,
                   int32_t byteRate,
                   int32_t blockAlignBytes,
                   int32_t bitsPerSample,
                   int32_t sampleCount)
    : audioFormat(audioFormat)
    , channels(channels)
    , sampleRateHz(sampleRateHz)
    , byteRate(byteRate)
    , blockAlignBytes(blockAlignBytes)
    , bitsPerSample(bitsPerSample)
    , sampleCount(sampleCount) {}

WavProps::WavProps(const signed char* header) {
    HeaderBytes bytes(header);
    if (length(header) < kHeaderBytes) {
        exc(kShortHeader);
    }
    if (!bytes.hasText(0, "RIFF")) {
        exc(kNoRiff);
    }
    if (!bytes.hasText(8, "WAVE")) {
        exc(kNoWave);
    }
    if (!bytes.hasText(12, "fmt ")) {
        exc(kNoFmt);
    }
    if (bytes.get32(16) != kFmtChunkBytes) {
        exc(kOtherFmtSize);
    }
    audioFormat = bytes.get16(20);
    channels = bytes.get16(22);
    sampleRateHz = bytes.get32(24);
    byteRate = bytes.get32(28);
    blockAlignBytes = bytes.get16(32);
    bitsPerSample = bytes.get16(34);
    if (!isCanonicalFormat()) {
        exc(kOtherFormat);
    }
    if (!bytes.hasText(36, "data")) {
        exc(kNoData);
    }
    sampleCount = bytes.get32(40) >> 1;
    if (!isLengthInRange()) {
        exc(kReadLengthOutOfRange);
    }
}

bool WavProps::isCanonicalFormat() const {
    return audioFormat == kPcm && channels == 1 && byteRate == wrapMul(2, sampleRateHz) &&
           blockAlignBytes == 2 && bitsPerSample == 16;
}

bool WavProps::isLengthInRange() const {
    return sampleCount > 0 && sampleCount <= int64_t{kLongestSoundSeconds} * sampleRateHz;
}

signed char* WavProps::toByteArray() {
    auto* array = newArray<signed char>(kHeaderBytes);
    toByteArray(array, 0);
    return array;
}

void WavProps::toByteArray(signed char* dst, int32_t off) {
    if (int64_t{off} + kHeaderBytes - 1 >= length(dst)) {
        exc(kNoRoom);
    }
    if (!isLengthInRange()) {
        exc(kWrittenLengthOutOfRange);
    }
    HeaderBytes bytes;
    bytes.putText(0, "RIFF");
    bytes.put32(4, wrapMul(wrapAdd(sampleCount, 18), 2));
    bytes.putText(8, "WAVE");
    bytes.putText(12, "fmt ");
    bytes.put32(16, kFmtChunkBytes);
    bytes.put16(20, audioFormat);
    bytes.put16(22, channels);
    bytes.put32(24, sampleRateHz);
    bytes.put32(28, byteRate);
    bytes.put16(32, blockAlignBytes);
    bytes.put16(34, bitsPerSample);
    bytes.putText(36, "data");
    bytes.put32(40, wrapMul(2, sampleCount));
    for (int32_t i = 0; i < kHeaderBytes; i++) {
        // After exc() the work goes on even if the array has no room: nothing is written outside
        // it.
        const int64_t target = int64_t{off} + i;
        if (target >= 0 && target < length(dst)) {
            dst[target] = static_cast<signed char>(bytes.at(i));
        }
    }
}
