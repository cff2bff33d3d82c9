// SPDX-License-Identifier: MIT
// Moves whole sounds between streams of WAV bytes and memory: arrays of 32-bit integers, one for
// each sample, 8000 a second.
//
// The caller provides two byte buffers, so that they are allocated only once: a header buffer of 44
// bytes and a sample buffer of at least 4, both counted arrays.
#pragma once

#include <cstdint>

class InputStream;
class OutputStream;

class WavFile {
public:
    static constexpr int32_t kRateHz = 8000;
    static constexpr int32_t kRecordedRateHz = 16000;

    /// Loads a sound of 8000 Hz as it is, one of 16000 Hz as the means of its pairs of samples.
    /// Returns a new counted array, which the caller frees with deleteArrFunc. Null for a stream
    /// without a whole header, for any other rate, for more samples than an array can hold, and if
    /// the stream has failed, because half a sound must not replace the whole one. Samples that the
    /// header promises and the stream does not have are dropped: the array ends with the stream. A
    /// negative length is a sound of no samples.
    static int32_t*
    loadTo8Khz(InputStream* stream, signed char* headerBuffer, signed char* sampleBuffer);

    /// Writes header and samples; of each sample the low 16 bits. Returns false if the stream lost
    /// a byte; then the bytes written are not a usable sound.
    static bool save8Khz(OutputStream* stream,
                         const int32_t* samples,
                         signed char* headerBuffer,
                         signed char* sampleBuffer);
};
