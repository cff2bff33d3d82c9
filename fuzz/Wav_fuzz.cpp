// SPDX-License-Identifier: MIT
// Fuzzes the application's WAV files: the header and the loader accept any bytes, and a loaded
// sound must be the same after it was saved and loaded again.
#include "ArrFunc.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"
#include "WavFile.h"
#include "WavProps.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr size_t kMaxInputBytes = 1 << 20;
constexpr int32_t kSampleBufferBytes = 64;  // small, so that short inputs need it more than once

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkHeader(const signed char* bytes) {
    WavProps props(bytes);
    signed char* header = props.toByteArray();
    const WavProps again(header);
    require(again.getSampleRate() == props.getSampleRate());
    require(again.getChannels() == props.getChannels());
    require(again.getSampleCount() == props.getSampleCount());
    deleteArrFunc(header);
}

void checkRoundTrip(const int32_t* samples, signed char* header, signed char* buffer) {
    ByteArrayOutputStream out;
    require(WavFile::save8Khz(&out, samples, header, buffer));
    ByteArrayInputStream in(out.toByteArray());
    int32_t* again = WavFile::loadTo8Khz(&in, header, buffer);
    require(length(again) == length(samples));
    require(again != nullptr && std::equal(samples, samples + length(samples), again));
    deleteArrFunc(again);
    in.disposeBufferData();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    auto* bytes = newArray<signed char>(static_cast<int32_t>(size));
    if (size > 0) {
        std::memcpy(bytes, data, size);
    }
    checkHeader(bytes);
    auto* header = newArray<signed char>(WavProps::kHeaderBytes);
    auto* buffer = newArray<signed char>(kSampleBufferBytes);
    ByteArrayInputStream stream(bytes);
    int32_t* samples = WavFile::loadTo8Khz(&stream, header, buffer);
    if (samples != nullptr) {
        require(2 * static_cast<size_t>(length(samples)) + WavProps::kHeaderBytes <= size);
        checkRoundTrip(samples, header, buffer);
    }
    deleteArrFunc(samples);
    deleteArrFunc(buffer);
    deleteArrFunc(header);
    deleteArrFunc(bytes);
    return 0;
}
