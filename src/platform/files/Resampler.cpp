// SPDX-License-Identifier: MIT
#include "Resampler.h"

#include "SoundLibraries.h"

#include <algorithm>
#include <array>

namespace {

constexpr size_t kBlockSamples = 4096;  // output samples per call of the library

// The part of the lower rate's band that is not weakened. If it were larger, the sound would ring
// longer at each edge; if it were smaller, consonants would be duller.
constexpr double kLevelBand = 0.95;

bool isPossible(int32_t fromHz, int32_t toHz) {
    return fromHz > 0 && toHz > 0 && fromHz <= int64_t{toHz} * Resampler::kMaxTimes &&
           toHz <= int64_t{fromHz} * Resampler::kMaxTimes;
}

soxr_t newState(int32_t fromHz, int32_t toHz) {
    const SoxrLibrary* const library = SoxrLibrary::get();
    if (library == nullptr || !isPossible(fromHz, toHz)) {
        return nullptr;
    }
    // 20 bits: the errors stay below the lowest of the 16 bits.
    soxr_quality_spec_t quality = library->qualitySpec(SOXR_20_BITQ, SOXR_DOUBLE_PRECISION);
    quality.passband_end = kLevelBand;
    const soxr_io_spec_t kinds = library->ioSpec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_runtime_spec_t oneThread = library->runtimeSpec(1);
    return library->create(fromHz, toHz, 1, nullptr, &kinds, &quality, &oneThread);
}

/// Deletes a state that newState() has made; so the library is there.
void deleteState(soxr_t state) {
    SoxrLibrary::get()->destroy(state);
}

}  // namespace

bool Resampler::isThere() {
    return SoxrLibrary::get() != nullptr;
}

Resampler::Resampler(int32_t fromHz, int32_t toHz)
    : state(newState(fromHz, toHz), &deleteState) {}

bool Resampler::convert(
    const float* samples, size_t count, bool last, size_t maxSamples, std::vector<float>& out) {
    if (!isReady()) {
        return false;
    }
    // A call without samples would end the sound.
    const bool isTaken = count == 0 || process(samples, count, maxSamples, out);
    return isTaken && (!last || process(nullptr, 0, maxSamples, out));
}

/// @param samples  null: the end of the sound
bool Resampler::process(const float* samples,
                        size_t count,
                        size_t maxSamples,
                        std::vector<float>& out) {
    std::array<float, kBlockSamples> made{};
    const SoxrLibrary& library = *SoxrLibrary::get();
    size_t used = 0;
    size_t got = 0;
    do {
        const size_t wanted = std::min(maxSamples - out.size(), kBlockSamples);
        if (library.process(state.get(), samples, count, &used, made.data(), wanted, &got) !=
            nullptr) {
            return false;
        }
        out.insert(out.end(), made.data(), made.data() + got);
        samples = samples == nullptr ? nullptr : samples + used;
        count -= used;
    } while (out.size() < maxSamples && (count > 0 || got > 0));
    return true;
}
