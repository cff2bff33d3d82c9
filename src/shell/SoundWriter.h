// SPDX-License-Identifier: MIT
// Writes a sound: WAV by the application's own writer, other kinds by a library.
#pragma once

#include "Problem.h"
#include "SoundFormats.h"

#include <cstdint>
#include <string>

class OutputFile;

class SoundWriter {
public:
    using Kind = SoundFormats::Format;

    /// True if the library of this machine can write that kind; it may be built without some.
    static bool isPossible(Kind kind);

    /// True if the machine has the library; without it only WAV is possible.
    static bool isLibraryThere();

    /// Writes all of a sound (a counted array) into an open file, which the caller commits.
    /// @returns the problem, if it has failed
    static Problem write(OutputFile& file, Kind kind, const int32_t* samples);
};
