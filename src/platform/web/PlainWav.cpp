// SPDX-License-Identifier: MIT
#include "PlainWav.h"

#include "HostSound.h"
#include "RateTo16k.h"
#include "WavHeader.h"

#include <algorithm>
#include <cstring>
#include <deque>

namespace {

using Samples = std::vector<int16_t>;

constexpr uint32_t kWholeNumbers = 1;
constexpr uint32_t kFloats = 3;
constexpr uint32_t kExtensible = 0xFFFE;  // the real format comes later in the chunk
constexpr size_t kRiffBytes = 12;
constexpr uint32_t kChunkHeadBytes = 8;
constexpr uint32_t kFormatBytes = 16;
constexpr size_t kSubFormatAt = 24;

uint32_t word(const uint8_t* bytes, size_t count) {
    uint32_t value = 0;
    for (size_t i = count; i > 0; i--) {
        value = value << 8 | bytes[i - 1];
    }
    return value;
}

struct Format {
    uint32_t kind = 0;
    uint32_t channels = 0;
    uint32_t rateHz = 0;
    uint32_t bits = 0;

    bool isKnown() const {
        const bool whole =
            kind == kWholeNumbers && (bits == 8 || bits == 16 || bits == 24 || bits == 32);
        return (whole || (kind == kFloats && bits == 32)) && channels >= 1 &&
               channels <= PlainWav::kMaxChannels && rateHz >= PlainWav::kMinRateHz &&
               rateHz <= PlainWav::kMaxRateHz;
    }

    size_t sampleBytes() const { return bits / 8; }

    size_t frameBytes() const { return sampleBytes() * channels; }

    /// One sample as -1 to 1.
    float sampleAt(const uint8_t* bytes) const {
        if (kind == kFloats) {
            float value = 0;
            std::memcpy(&value, bytes, sizeof value);
            return value;
        }
        if (bits == 8) {
            return static_cast<float>(bytes[0] - 128) / 128.0F;  // 8-bit samples alone are unsigned
        }
        const auto top = static_cast<int32_t>(word(bytes, sampleBytes()) << (32 - bits));
        return static_cast<float>(top) / 2147483648.0F;
    }
};

Format formatOf(const uint8_t* chunk, size_t size) {
    Format format;
    if (size >= kFormatBytes) {
        format = {word(chunk, 2), word(chunk + 2, 2), word(chunk + 4, 4), word(chunk + 14, 2)};
        if (format.kind == kExtensible && size >= kSubFormatAt + 2) {
            format.kind = word(chunk + kSubFormatAt, 2);
        }
    }
    return format;
}

constexpr size_t kBlockFrames = 4096;  // converted at a time: a whole sound as floats is large

/// The first 20 s of a sound that comes block by block.
class Take {
public:
    Take(int32_t rateHz, size_t framesThere)
        : framesLeft(std::min(framesThere, static_cast<size_t>(rateHz) * PlainWav::kLongestSeconds))
        , converter(rateHz) {}

    /// How many frames the next add() takes; 0 at the end.
    size_t wanted() const { return std::min(framesLeft, kBlockFrames); }

    void add(const float* frames, size_t count) {
        converter.convert(frames, static_cast<int32_t>(count), converted);
        framesLeft -= count;
    }

    Samples finished() {
        converter.finish(converted);
        const size_t kept =
            std::min(converted.size(), static_cast<size_t>(HostMicrophone::kLongestTakeSamples));
        return {converted.begin(), converted.begin() + static_cast<ptrdiff_t>(kept)};
    }

private:
    size_t framesLeft;
    RateTo16k converter;
    std::deque<int16_t> converted;
};

float meanOfChannels(const Format& format, const uint8_t* frame) {
    float sum = 0;
    for (uint32_t channel = 0; channel < format.channels; channel++) {
        sum += format.sampleAt(frame + channel * format.sampleBytes());
    }
    return sum / static_cast<float>(format.channels);
}

Samples takeOf(const Format& format, const uint8_t* data, size_t size) {
    const size_t frameBytes = format.frameBytes();
    Take take(static_cast<int32_t>(format.rateHz), size / frameBytes);
    std::vector<float> block;
    for (size_t count = take.wanted(); count > 0; count = take.wanted()) {
        block.resize(count);
        for (float& mean : block) {
            mean = meanOfChannels(format, data);
            data += frameBytes;
        }
        take.add(block.data(), count);
    }
    return take.finished();
}

}  // namespace

std::vector<int16_t> PlainWav::read(const uint8_t* bytes, size_t count, bool* isCut) {
    return readIf(bytes, count, true, isCut);
}

std::vector<int16_t> PlainWav::readBeginning(const uint8_t* bytes, size_t count, bool* isCut) {
    return readIf(bytes, count, false, isCut);
}

/// @param isWhole  false: the file goes on after these bytes
std::vector<int16_t>
PlainWav::readIf(const uint8_t* bytes, size_t count, bool isWhole, bool* isCut) {
    if (count < kRiffBytes || std::memcmp(bytes, "RIFF", 4) != 0 ||
        std::memcmp(bytes + 8, "WAVE", 4) != 0) {
        return {};
    }
    Format format;
    size_t at = kRiffBytes;
    while (count - at >= kChunkHeadBytes) {
        const uint8_t* head = bytes + at;
        at += kChunkHeadBytes;
        const size_t told = word(head + 4, 4);
        const size_t size = std::min(told, count - at);
        if (std::memcmp(head, "fmt ", 4) == 0) {
            format = formatOf(bytes + at, size);
        } else if (std::memcmp(head, "data", 4) == 0 && format.isKnown()) {
            const size_t takeBytes = size_t{format.rateHz} * kLongestSeconds * format.frameBytes();
            const bool isThere = isWhole || size == told || size >= takeBytes;
            if (isCut != nullptr) {
                *isCut = (isWhole ? size : told) > takeBytes;
            }
            return isThere ? takeOf(format, bytes + at, size) : Samples();
        }
        at += std::min(size + size % 2, count - at);  // chunks begin at even places
    }
    return {};
}

std::vector<int16_t> PlainWav::readTake(const uint8_t* bytes, size_t count) {
    if (count < WavHeader::kBytes) {
        return {};
    }
    Samples samples((count - WavHeader::kBytes) / sizeof(int16_t));
    if (!samples.empty()) {
        std::memcpy(samples.data(), bytes + WavHeader::kBytes, samples.size() * sizeof(int16_t));
    }
    const std::vector<uint8_t> written =
        toFile(samples.data(), static_cast<int32_t>(samples.size()), HostMicrophone::kRateHz);
    const bool isOwn = written.size() == count && std::memcmp(written.data(), bytes, count) == 0;
    return isOwn ? samples : Samples();
}

std::vector<uint8_t> PlainWav::toFile(const int16_t* samples, int32_t count, int32_t rateHz) {
    constexpr uint32_t kSampleBytes = sizeof(int16_t);
    constexpr uint32_t kHeaderBytes = WavHeader::kBytes;
    const auto rate = static_cast<uint32_t>(rateHz);
    const uint32_t dataBytes = kSampleBytes * static_cast<uint32_t>(count);
    std::vector<uint8_t> file(kHeaderBytes + dataBytes);
    uint8_t* next = file.data();
    const auto letters = [&](const char* text) { next = std::copy_n(text, 4, next); };
    const auto number = [&](uint32_t value, int32_t bytes) {
        for (int32_t i = 0; i < bytes; i++) {
            *next++ = static_cast<uint8_t>(value >> (8 * i));
        }
    };
    letters("RIFF");
    number(kHeaderBytes - kChunkHeadBytes + dataBytes, 4);
    letters("WAVE");
    letters("fmt ");
    number(kFormatBytes, 4);
    number(kWholeNumbers, 2);
    number(1, 2);
    number(rate, 4);
    number(rate * kSampleBytes, 4);
    number(kSampleBytes, 2);
    number(8 * kSampleBytes, 2);
    letters("data");
    number(dataBytes, 4);
    if (count > 0) {
        std::memcpy(next, samples, dataBytes);  // every host is little-endian, as the file is
    }
    return file;
}

std::vector<int16_t> PlainWav::toTake(const float* samples, int32_t count, int32_t rateHz) {
    if (rateHz < kMinRateHz || rateHz > kMaxRateHz || count < 1) {
        return {};
    }
    Take take(rateHz, static_cast<size_t>(count));
    for (size_t block = take.wanted(); block > 0; block = take.wanted()) {
        take.add(samples, block);
        samples += block;
    }
    return take.finished();
}
