// SPDX-License-Identifier: MIT
// Sound files on a computer, read and written with libsndfile: the user's recordings, and what the
// speaker has played.
#pragma once

#include "Problem.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class SoundFile {
public:
    /// Reads the start of a file of any rate and up to eight channels as 16-bit mono (the mean of
    /// the channels) at the wanted rate. 16-bit mono at that rate is not changed. Memory is used
    /// for what was read, not for what a header promises; floats beyond full scale are clamped, and
    /// one that is not a number is silence.
    /// @param maxSamples  what lies after this number of samples of the wanted rate is not read
    /// @param samples     untouched on an error
    /// @param framesRead  if given: frames of the file that were taken from the library
    static Problem read(const std::string& path,
                        int32_t rateHz,
                        int64_t maxSamples,
                        std::vector<int16_t>& samples,
                        int64_t* framesRead = nullptr);

    /// What the sentence of read() says after "cannot be read: "; all of another sentence.
    static std::string reasonOf(const Problem& problem);

    /// Writes a 16-bit mono WAV file.
    static Problem
    write(const std::string& path, int32_t rateHz, const std::vector<int16_t>& samples);

    enum class Format { kWav, kFlac, kOgg, kOpus, kMp3 };

    /// Writes mono samples into an open file; it stays open. WAV and FLAC keep every bit.
    /// @param name  of the file, for the sentence
    static Problem write(int file,
                         const std::string& name,
                         int32_t rateHz,
                         const int16_t* samples,
                         size_t count,
                         Format format);

    /// The same sound at another rate; its length is rounded to whole samples.
    static std::vector<int16_t>
    resample(const std::vector<int16_t>& samples, int32_t fromHz, int32_t toHz);
};
