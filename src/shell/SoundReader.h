// SPDX-License-Identifier: MIT
// Reads a sound file of any kind, rate and number of channels into what the effects need: 8 kHz,
// mono.
//
// A WAV file as the application itself writes and records them (8 or 16 kHz, mono, 16 bits) goes
// through the application's own loader, bit for bit; everything else through a library.
#pragma once

#include "Sound.h"

#include <string>
#include <vector>

class InputFile;
class ProgressLine;
struct sf_private_tag;

class SoundReader {
public:
    /// @param maxSamples  longer sounds are refused; at most what an array can hold
    SoundReader(int32_t maxSamples, ProgressLine& progress);

    /// Returns null on failure; error() then says why.
    Sound read(const std::string& path);

    /// What failed in the last read() and why, to be printed after the file's name; no full stop.
    /// Empty if it succeeded.
    const std::string& error() const { return errorText; }

    /// True if the last sound was refused only because of its length.
    bool wasTooLong() const { return tooLong; }

private:
    static int32_t canonicalSamples(const InputFile& file);
    Sound readCanonical(const InputFile& file, int32_t count);
    Sound readAnyKind(const InputFile& file, const std::string& path);
    bool convertAll(sf_private_tag* file, std::vector<int32_t>& samples);
    Sound refuse(const std::string& why);
    Sound refuseLength();

    int32_t maxSamples;
    ProgressLine& progress;
    bool tooLong = false;
    std::string errorText;
};
