// SPDX-License-Identifier: MIT
// Writes a saved sound as another file, in the form that its name asks for.
#pragma once

#include "Problem.h"
#include "SoundFile.h"

#include <cstdint>
#include <string>

class SoundExport {
public:
    /// The form that a name asks for by its ending, in capitals or not: .wav, .flac, .ogg (also
    /// .oga), .opus, .mp3. A name without an ending asks for WAV.
    /// @param format  untouched if there is no such form
    static bool formatOf(const std::string& name, SoundFile::Format& format);

    /// Name for a saved sound: "murmelo-robot-00003.wav" for "rec_00003.wav".
    /// @param effectWord  empty: left out
    static std::string nameOf(const std::string& savedName, const std::string& effectWord);

    /// Converts a saved sound. At any moment the path leads to what was there before or the whole
    /// new file.
    /// @param saved   a WAV file of the program
    /// @param path    of the new file, in a folder that is there
    /// @returns what is wrong, without the target's name
    static Problem write(const std::string& saved, const std::string& path);
};
