// SPDX-License-Identifier: MIT
// Reads and writes sound files on a computer, with libsndfile.
#pragma once

#include "Problem.h"
#include "SoundFormats.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class SoundFile {
public:
    /// Reads the start of a file of any rate and up to eight channels as 16-bit mono (the mean of
    /// the channels) at the wanted rate. 16-bit mono at that rate is not changed. Takes memory only
    /// for samples that were read, whatever a header says. Floats beyond full scale are clamped;
    /// NaN is silence.
    /// @param maxSamples  how many samples, at the wanted rate, are read at most
    /// @param samples     untouched on an error
    /// @param framesRead  if not null: gets how many frames of the file were read
    static Problem read(const std::string& path,
                        int32_t rateHz,
                        int64_t maxSamples,
                        std::vector<int16_t>& samples,
                        int64_t* framesRead = nullptr);

    /// The reason in a sentence of read(), without what follows it in brackets; the whole sentence
    /// of any other problem.
    static std::string reasonOf(const Problem& problem);

    /// Writes a 16-bit mono WAV file.
    static Problem
    write(const std::string& path, int32_t rateHz, const std::vector<int16_t>& samples);

    using Format = SoundFormats::Format;

    /// The reason for a file that was not written as a whole.
    static constexpr const char* kNotWhole = "it could not be written whole";

    /// Writes mono samples into an open file; it stays open. WAV and FLAC keep every bit.
    /// @param name  of the file, for the sentence of a problem
    static Problem write(int file,
                         const std::string& name,
                         int32_t rateHz,
                         const int16_t* samples,
                         size_t count,
                         Format format);

    /// The sound at another rate; its length is rounded to whole samples.
    static std::vector<int16_t>
    resample(const std::vector<int16_t>& samples, int32_t fromHz, int32_t toHz);
};
