// SPDX-License-Identifier: MIT
// Fuzzes sound files that become the take: at most as many samples are read as asked for, and
// asking for fewer gives the same first samples.
#include "MemoryFile.h"
#include "SoundFile.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr size_t kMaxInputBytes = 1 << 16;
constexpr int32_t kRateHz = 16000;
constexpr int64_t kMaxSamples = 8000;
constexpr int64_t kFewerSamples = 300;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    static const MemoryFile file;
    file.fill(data, size);
    std::vector<int16_t> samples;
    int64_t frames = 0;
    const Problem problem = SoundFile::read(file.path(), kRateHz, kMaxSamples, samples, &frames);
    require(!problem || samples.empty());
    require(static_cast<int64_t>(samples.size()) <= kMaxSamples);
    require(samples.empty() || frames > 0);
    std::vector<int16_t> start;
    int64_t startFrames = 0;
    require(SoundFile::read(file.path(), kRateHz, kFewerSamples, start, &startFrames) == problem);
    require(startFrames <= frames);
    require(start.size() == std::min<size_t>(samples.size(), kFewerSamples));
    require(std::equal(start.begin(), start.end(), samples.begin()));
    return 0;
}
