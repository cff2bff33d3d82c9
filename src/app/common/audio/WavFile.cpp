// SPDX-License-Identifier: MIT
#include "WavFile.h"

#include "Array.h"
#include "InputStream.h"
#include "OutputStream.h"
#include "WavProps.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstring>

namespace {

constexpr int32_t kSampleBytes = 2;

static_assert(std::endian::native == std::endian::little, "samples are copied as they are");

/// Sample i of a file's bytes.
int32_t sampleAt(const signed char* bytes, ptrdiff_t i) {
    int16_t sample = 0;
    std::memcpy(&sample, bytes + kSampleBytes * i, sizeof sample);
    return sample;
}

void widen(const signed char* __restrict bytes, int32_t* __restrict target, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        target[i] = sampleAt(bytes, i);
    }
}

void takeMeans(const signed char* __restrict bytes, int32_t* __restrict target, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        const ptrdiff_t first = ptrdiff_t{2} * i;
        target[i] = (sampleAt(bytes, first) + sampleAt(bytes, first + 1)) >> 1;
    }
}

void narrow(const int32_t* __restrict samples, signed char* __restrict bytes, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        // Deliberate: no clamping. A sample outside 16 bits wraps; the effects limit theirs.
        const auto sample = static_cast<int16_t>(samples[i]);
        std::memcpy(bytes + ptrdiff_t{kSampleBytes} * i, &sample, sizeof sample);
    }
}

/// Reads until count bytes are there or the stream ends; returns how many are there.
int32_t readUpTo(InputStream* stream, signed char* bytes, int32_t count) {
    int32_t got = 0;
    while (got < count) {
        const int32_t more = stream->read(bytes, got, count - got);
        if (more <= 0) {
            break;
        }
        got += more;
    }
    return got;
}

/// Fills target (a counted array): each element is the mean of samplesPerTarget samples, 1 or 2, of
/// the stream. Returns how many elements were filled before the stream ended.
int32_t
readSamples(InputStream* stream, int32_t samplesPerTarget, int32_t* target, signed char* buffer) {
    const int32_t stride = kSampleBytes * samplesPerTarget;
    const int32_t maxSamples = length(buffer) / stride;
    int32_t done = 0;
    while (done < length(target)) {
        const int32_t wanted = std::min(maxSamples, length(target) - done);
        const int32_t got = readUpTo(stream, buffer, wanted * stride) / stride;
        if (samplesPerTarget == 1) {
            widen(buffer, target + done, got);
        } else {
            takeMeans(buffer, target + done, got);
        }
        done += got;
        if (got < wanted) {
            break;
        }
    }
    return done;
}

}  // namespace

int32_t*
WavFile::loadTo8Khz(InputStream* stream, signed char* headerBuffer, signed char* sampleBuffer) {
    assert(length(headerBuffer) >= WavProps::kHeaderBytes);
    assert(length(sampleBuffer) >= 2 * kSampleBytes);
    // A short read is no header: the rest of the buffer is that of an earlier file.
    if (stream->read(headerBuffer, 0, WavProps::kHeaderBytes) != WavProps::kHeaderBytes) {
        return nullptr;
    }
    const WavProps props(headerBuffer);
    if (props.getSampleRate() != kRateHz && props.getSampleRate() != kRecordedRateHz) {
        return nullptr;
    }
    const int32_t samplesPerTarget = props.getSampleRate() / kRateHz;
    // Takes no more memory than the stream can fill, even if the header promises more samples.
    const int32_t there = std::max(stream->available(), 0) / kSampleBytes;
    const int32_t count = std::clamp(props.getSampleCount(), 0, there) / samplesPerTarget;
    if (count > kMaxArrayLength || stream->hasFailed()) {
        return nullptr;
    }
    Array<int32_t> samples(newArray<int32_t>(count));
    const int32_t done = readSamples(stream, samplesPerTarget, samples, sampleBuffer);
    if (stream->hasFailed()) {
        return nullptr;
    }
    if (done < count) {
        auto* shorter = newArray<int32_t>(done);
        std::copy_n(samples.get(), done, shorter);
        return shorter;
    }
    return samples.release();
}

bool WavFile::save8Khz(OutputStream* stream,
                       const int32_t* samples,
                       signed char* headerBuffer,
                       signed char* sampleBuffer) {
    assert(length(headerBuffer) >= WavProps::kHeaderBytes);
    assert(length(sampleBuffer) >= kSampleBytes);
    WavProps props(length(samples), kRateHz);
    props.toByteArray(headerBuffer, 0);
    stream->write(headerBuffer, 0, WavProps::kHeaderBytes);
    const int32_t maxSamples = length(sampleBuffer) / kSampleBytes;
    for (int32_t done = 0; done < length(samples);) {
        const int32_t count = std::min(maxSamples, length(samples) - done);
        narrow(samples + done, sampleBuffer, count);
        stream->write(sampleBuffer, 0, kSampleBytes * count);
        done += count;
    }
    stream->flush();
    return !stream->hasFailed();
}
