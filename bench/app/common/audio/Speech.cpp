// SPDX-License-Identifier: MIT
// Loads real speech for the benchmarks.
#include "Speech.h"

#include "ArrFunc.h"
#include "ByteArrayInputStream.h"
#include "WavFile.h"
#include "WavProps.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

constexpr const char* kRecording = "/usr/share/asterisk/sounds/en_US_f_Allison/demo-instruct.wav";

}  // namespace

std::vector<int32_t> loadSpeech(int32_t seconds) {
    std::ifstream file(kRecording, std::ios::binary);
    const std::vector<char> content((std::istreambuf_iterator<char>(file)),
                                    std::istreambuf_iterator<char>());
    auto* bytes = newArray<signed char>(static_cast<int32_t>(content.size()));
    std::copy(content.begin(), content.end(), bytes);
    ByteArrayInputStream stream(bytes);
    auto* headerBuffer = newArray<signed char>(WavProps::kHeaderBytes);
    auto* sampleBuffer = newArray<signed char>(20480);
    int32_t* samples = WavFile::loadTo8Khz(&stream, headerBuffer, sampleBuffer);
    if (length(samples) < seconds * WavFile::kRateHz) {
        std::fprintf(stderr, "%s: install asterisk-core-sounds-en-wav\n", kRecording);
        std::exit(1);
    }
    std::vector<int32_t> speech(samples, samples + ptrdiff_t{seconds} * WavFile::kRateHz);
    deleteArrFunc(samples);
    deleteArrFunc(sampleBuffer);
    deleteArrFunc(headerBuffer);
    deleteArrFunc(bytes);
    return speech;
}
