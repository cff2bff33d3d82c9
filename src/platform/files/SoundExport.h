// SPDX-License-Identifier: MIT
// Writes a saved sound to another file, in the format that the ending of its name asks for.
#pragma once

#include "Problem.h"

#include <string>

class SoundExport {
public:
    /// Name for a saved sound: "murmelo-robot-00003.wav" for "rec_00003.wav".
    /// @param effectWord  empty: left out
    static std::string nameOf(const std::string& savedName, const std::string& effectWord);

    /// Converts a saved sound. At any moment path is the old file or the complete new one.
    /// @param saved   a WAV file of the program
    /// @param path  of the new file, in a folder that exists
    /// @returns the problem, in a sentence without the new file's name
    static Problem write(const std::string& saved, const std::string& path);
};
