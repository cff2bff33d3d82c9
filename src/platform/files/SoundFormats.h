// SPDX-License-Identifier: MIT
// The formats in which sounds are written, and the endings of their files' names. The only list of
// them.
#pragma once

#include <optional>
#include <string>

class SoundFormats {
public:
    enum class Format { kWav, kFlac, kOgg, kOpus, kMp3 };

    /// The format by its ending without the dot, in upper or lower case: wav, flac, ogg or oga,
    /// opus, mp3. No value for any other text.
    static std::optional<Format> ofEnding(const std::string& ending);

    /// The format for the ending of a file's name; WAV for a name without an ending; no value for
    /// an unknown ending.
    static std::optional<Format> ofPath(const std::string& path);

    /// The ending of new files, without the dot, in lower case.
    static const char* ending(Format format);

    /// The endings of all formats, one for each, in a phrase: "wav, flac, ogg, opus or mp3".
    /// @param before  stands before each ending: "." or nothing
    /// @param last    stands before the last one: "or", "and"
    static std::string inWords(const std::string& before, const std::string& last);

    /// The format's number in libsndfile, for samples of 16 bits: SF_FORMAT_...
    static int ofLibrary(Format format);
};
