// SPDX-License-Identifier: MIT
// Sounds and WAV files made by hand, byte by byte.
#include "TestSounds.h"

#include <cstddef>

TestSounds::Samples TestSounds::noise(int32_t count, uint32_t seed) {
    Samples samples;
    for (int32_t i = 0; i < count; i++) {
        seed = seed * 1664525U + 1013904223U;
        samples.push_back(static_cast<int16_t>(seed >> 16));
    }
    return samples;
}

std::string TestSounds::little(uint32_t value, int32_t bytes) {
    std::string text;
    for (int32_t i = 0; i < bytes; i++) {
        text += static_cast<char>(value >> (8 * i));
    }
    return text;
}

std::string TestSounds::header(uint32_t samples, uint32_t rateHz) {
    return "RIFF" + little(36 + 2 * samples, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
           little(1, 2) + little(rateHz, 4) + little(2 * rateHz, 4) + little(2, 2) + little(16, 2) +
           "data" + little(2 * samples, 4);
}

std::string TestSounds::bytes(const Samples& samples) {
    std::string text;
    for (const int16_t sample : samples) {
        text += little(static_cast<uint16_t>(sample), 2);
    }
    return text;
}

std::string TestSounds::wav(const Samples& samples, uint32_t rateHz) {
    return header(static_cast<uint32_t>(samples.size()), rateHz) + bytes(samples);
}

std::string TestSounds::changed(std::string wav, size_t at, const std::string& bytes) {
    for (size_t i = 0; i < bytes.size() && at + i < wav.size(); i++) {
        wav[at + i] = bytes[i];
    }
    return wav;
}

TestSounds::Samples TestSounds::samplesOf(const std::string& wav) {
    Samples samples;
    for (size_t i = kHeaderBytes; i + 1 < wav.size(); i += 2) {
        const auto low = static_cast<unsigned char>(wav[i]);
        const auto high = static_cast<unsigned char>(wav[i + 1]);
        samples.push_back(static_cast<int16_t>(low | (high << 8)));
    }
    return samples;
}

TestSounds::Samples TestSounds::part(const Samples& samples, size_t from, size_t count) {
    const auto begin = samples.begin() + static_cast<ptrdiff_t>(from);
    return {begin, begin + static_cast<ptrdiff_t>(count)};
}
