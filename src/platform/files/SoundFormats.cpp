// SPDX-License-Identifier: MIT
#include "SoundFormats.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <sndfile.h>

namespace {

using Format = SoundFormats::Format;

struct Row {
    Format format;
    const char* ending;
    int ofLibrary;
    const char* otherEnding;
};

constexpr std::array<Row, 5> kRows = {{
    {Format::kWav, "wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, nullptr},
    {Format::kFlac, "flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, nullptr},
    {Format::kOgg, "ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, "oga"},
    {Format::kOpus, "opus", SF_FORMAT_OGG | SF_FORMAT_OPUS, nullptr},
    {Format::kMp3, "mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, nullptr},
}};

const Row& rowOf(Format format) {
    return *std::find_if(kRows.begin(), kRows.end(),
                         [&](const Row& row) { return row.format == format; });
}

}  // namespace

std::optional<Format> SoundFormats::ofEnding(const std::string& ending) {
    std::string wanted = ending;
    std::transform(wanted.begin(), wanted.end(), wanted.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    for (const Row& row : kRows) {
        if (wanted == row.ending || (row.otherEnding != nullptr && wanted == row.otherEnding)) {
            return row.format;
        }
    }
    return std::nullopt;
}

std::optional<Format> SoundFormats::ofPath(const std::string& path) {
    const std::string dotted = std::filesystem::path(path).extension().string();
    return dotted.empty() ? Format::kWav : ofEnding(dotted.substr(1));
}

const char* SoundFormats::ending(Format format) {
    return rowOf(format).ending;
}

std::string SoundFormats::inWords(const std::string& before, const std::string& last) {
    std::string words;
    for (const Row& row : kRows) {
        if (&row == &kRows.back()) {
            words += " " + last + " ";
        } else if (&row != &kRows.front()) {
            words += ", ";
        }
        words += before + row.ending;
    }
    return words;
}

int SoundFormats::ofLibrary(Format format) {
    return rowOf(format).ofLibrary;
}
