// SPDX-License-Identifier: MIT
// Fuzzes the sound files that the page reads itself: any bytes give a take within its limit or
// none, and a take is the same after it was written and read again.
#include "HostSound.h"
#include "PlainWav.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

constexpr size_t kMaxInputBytes = 1 << 16;

using Samples = std::vector<int16_t>;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

Samples readAgain(const Samples& samples, bool isTake) {
    const std::vector<uint8_t> file = PlainWav::toFile(
        samples.data(), static_cast<int32_t>(samples.size()), HostMicrophone::kRateHz);
    return isTake ? PlainWav::readTake(file.data(), file.size())
                  : PlainWav::read(file.data(), file.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    bool isCut = false;
    const Samples samples = PlainWav::read(data, size, &isCut);
    require(samples.size() <= size_t{HostMicrophone::kLongestTakeSamples});
    require(readAgain(samples, false) == samples);
    require(readAgain(samples, true) == samples);
    // The beginning of a longer file gives the same, or nothing if the file says that more follows.
    const Samples beginning = PlainWav::readBeginning(data, size, &isCut);
    require(beginning.empty() || beginning == samples);
    const Samples take = PlainWav::readTake(data, size);
    require(take.empty() || take == samples);
    return 0;
}
