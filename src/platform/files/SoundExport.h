// SPDX-License-Identifier: MIT
// Writes a saved sound to another file, in the format that the ending of its name asks for.
#pragma once

#include "Problem.h"

#include <cstdint>
#include <string>
#include <vector>

class SoundExport {
public:
    /// Name for a saved sound: "murmelo-robot-00003.wav" for "rec_00003.wav".
    /// @param effectWord  empty: left out
    static std::string nameOf(const std::string& savedName, const std::string& effectWord);

    /// Reads a saved sound for write().
    /// @param saved  a WAV file of the program
    /// @returns the bare reason why it cannot be read
    static Problem read(const std::string& saved, std::vector<int16_t>& samples);

    /// Writes it in another form. At any moment path is the old file or the complete new one.
    /// @param path  of the new file, in a folder that exists
    /// @returns the bare reason why it cannot be written
    static Problem write(const std::vector<int16_t>& samples, const std::string& path);
};
