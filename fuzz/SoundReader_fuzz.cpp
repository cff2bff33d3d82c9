// SPDX-License-Identifier: MIT
// Fuzzes the tool's sound files: each gives a sound within the limits, or an error.
#include "MemoryFile.h"
#include "ProgressLine.h"
#include "SoundReader.h"
#include "TestHost.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr size_t kMaxInputBytes = 1 << 16;
constexpr int32_t kMaxSamples = 8000;  // a second: a packed file may hold hours

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    static TestHost host;
    static const MemoryFile file;
    static ProgressLine progress;
    file.fill(data, size);
    SoundReader reader(kMaxSamples, progress);
    const Sound sound = reader.read(file.path());
    if ((sound == nullptr) == reader.error().empty() || (sound != nullptr && reader.wasTooLong())) {
        std::abort();
    }
    const int32_t count = sound != nullptr ? length(sound.get()) : 0;
    if (count > kMaxSamples || (sound != nullptr && count < 1)) {
        std::abort();
    }
    if (std::any_of(sound.get(), sound.get() + count,
                    [](int32_t sample) { return sample < INT16_MIN || sample > INT16_MAX; })) {
        std::abort();
    }
    return 0;
}
