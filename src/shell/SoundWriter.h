// SPDX-License-Identifier: MIT
// Writes a sound: WAV by the application's own writer, other kinds by a library.
#pragma once

#include "Problem.h"

#include <cstdint>
#include <optional>
#include <string>

class OutputFile;

class SoundWriter {
public:
    enum class Kind { kWav, kFlac, kOgg, kOpus, kMp3 };

    /// True if the library of this machine can write that kind; it may be built without some.
    static bool isPossible(Kind kind);

    /// True if the machine has the library; without it only WAV is possible.
    static bool isLibraryThere();

    /// The kind for the extension of a file's name; WAV without an extension; no value for an
    /// unknown one.
    static std::optional<Kind> kindOfPath(const std::string& path);

    /// The kind by its name in lower case: wav, flac, ogg or oga, opus, mp3. No value for any other
    /// name.
    static std::optional<Kind> kindOfName(const std::string& name);

    static std::string lowerCase(std::string text);

    /// The extension, without its dot.
    static const char* extension(Kind kind);

    /// Writes all of a sound (a counted array) into an open file, which the caller commits.
    /// @returns the problem, if it has failed
    static Problem write(OutputFile& file, Kind kind, const int32_t* samples);
};
