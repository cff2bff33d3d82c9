// SPDX-License-Identifier: MIT
// The properties of the sound in a WAV file, and the header that holds them.
#pragma once

#include "ClassLife.h"
#include "WavHeader.h"

#include <cstdint>

class WavProps : public ClassLife {
public:
    static constexpr int32_t kHeaderBytes = WavHeader::kBytes;
    static constexpr int32_t kLongestSoundSeconds = 60;

    /// 16-bit mono at 16000 Hz, as the microphone delivers it; the sample count is unknown (-1).
    WavProps()
        : WavProps(-1) {}

    explicit WavProps(int32_t sampleCount)
        : WavProps(sampleCount, 16000) {}

    /// 16-bit mono at any rate; everything the program writes is made with rate 8000.
    WavProps(int32_t sampleCount, int32_t sampleRateHz);

    explicit WavProps(const WavProps* other);
    WavProps(const WavProps* other, int32_t sampleCount);

    /// Format, channels, block and sample width of the other, but another rate and length.
    WavProps(const WavProps* other, int32_t sampleCount, int32_t sampleRateHz);
    WavProps(int32_t audioFormat,
             int32_t channels,
             int32_t sampleRateHz,
             int32_t byteRate,
             int32_t blockAlignBytes,
             int32_t bitsPerSample,
             int32_t sampleCount);

    /// Reads a header (a counted array). A malformed one is read too: the caller decides what it
    /// accepts. Bytes missing at the end of a short array count as 0.
    explicit WavProps(const signed char* header);

    WavProps& operator=(const WavProps&) = delete;

    virtual ~WavProps() = default;

    /// A new array of 44 bytes; the caller frees it with deleteArrFunc.
    virtual signed char* toByteArray();

    /// Writes the 44 bytes at dst[off] and on; what does not fit into dst is left out. Both size
    /// fields follow from the sample count alone, at two bytes for a sample.
    virtual void toByteArray(signed char* dst, int32_t off);

    int32_t getAudioFormat() const { return audioFormat; }

    int32_t getChannels() const { return channels; }

    int32_t getSampleRate() const { return sampleRateHz; }

    int32_t getByteRate() const { return byteRate; }

    int32_t getBlockAlign() const { return blockAlignBytes; }

    int32_t getBitsPerSample() const { return bitsPerSample; }

    int32_t getSampleCount() const { return sampleCount; }

    /// Called with the number of a defect in a header. Does nothing: reading and writing go on.
    static void exc(int32_t /*code*/) {}

private:
    bool isCanonicalFormat() const;
    bool isLengthInRange() const;

    int32_t audioFormat = 0;  // 1: PCM
    int32_t channels = 0;
    int32_t sampleRateHz = 0;
    int32_t byteRate = 0;  // bytes per second
    int32_t blockAlignBytes = 0;
    int32_t bitsPerSample = 0;
    int32_t sampleCount = 0;
};
