// SPDX-License-Identifier: MIT
// The least work of each effect, as the benchmark times it.
#include "Limits.h"

#include "Kernels.h"
#include "Lpc.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <map>

namespace limits {

namespace {

constexpr int32_t kFrame = Lpc::kFrameSamples;
constexpr int32_t kLevels = 514;

std::vector<int32_t> out;  // kept from run to run

int32_t* outOf(size_t samples) {
    if (out.size() < samples) {
        out.resize(samples);
    }
    return out.data();
}

struct Filter {
    float a[Lpc::kCoefficients];
};

/// The filters of all frames; worked out once for each length of the sound.
const std::vector<Filter>& filtersOf(const std::vector<int32_t>& samples) {
    static std::map<size_t, std::vector<Filter>> kept;
    std::vector<Filter>& filters = kept[samples.size()];
    if (filters.empty()) {
        for (size_t at = 0; at + kFrame <= samples.size(); at += kFrame) {
            filters.emplace_back();
            Lpc::encode(&samples[at], filters.back().a);
        }
    }
    return filters;
}

/// A frame through its filter, as the formula reads. line begins with the outputs before.
void filter(const float* a, const int32_t* src, float* line, int32_t* dst) {
    float newest =
        line[Lpc::kOrder - 1];  // not read back from memory, where each output would wait
    for (int32_t i = 0; i < kFrame; i++) {
        const float* outputs = line + Lpc::kOrder + i;
        // A sixteenth of the sample is about as loud as the excitation.
        float y = static_cast<float>(src[i] >> 4) * 0x1p-15F - a[1] * newest;
        for (int32_t t = 2; t <= Lpc::kOrder; t++) {
            y -= a[t] * outputs[-t];
        }
        line[Lpc::kOrder + i] = newest = y;
        dst[i] = static_cast<int32_t>(y * 32767.0F);
    }
}

MURMELO_KERNEL void
map(const int32_t* src, const int32_t* curve, int32_t* __restrict dst, int32_t samples) {
    for (int32_t i = 0; i < samples; i++) {
        const int32_t sign = src[i] >> 31;
        const int32_t magnitude = src[i] ^ sign;
        const int32_t level = magnitude >> 6;
        const int32_t fraction = magnitude & 63;
        const int32_t mapped = (curve[level + 1] * fraction + curve[level] * (64 - fraction)) >> 6;
        dst[i] = (mapped ^ sign) - sign;
    }
}

MURMELO_KERNEL void
resample(const int32_t* src, int32_t stepQ10, int32_t* __restrict dst, int32_t samples) {
    for (int32_t k = 0; k < samples; k++) {
        const int32_t posQ10 = k * stepQ10;
        const int32_t i = posQ10 >> 10;
        const int32_t fraction = posQ10 & 1023;
        dst[k] = (src[i] * (1024 - fraction) + src[i + 1] * fraction + 512) >> 10;
    }
}

/// Returns the first offset with the smallest sum.
MURMELO_KERNEL_PART int32_t compareWindows(const uint8_t* grain,
                                           const uint8_t* target,
                                           int32_t offsets,
                                           int32_t window) {
    int32_t best = 0;
    int32_t smallest = std::numeric_limits<int32_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        const uint8_t* here = grain + o;
        int32_t sum = 0;
        for (int32_t j = 0; j < window; j++) {
            sum += std::abs(here[j] - target[j]);
        }
        best = sum < smallest ? o : best;
        smallest = sum < smallest ? sum : smallest;
    }
    return best;
}

/// Loops with a constant length are fastest; the constants are the effects' fades, rounded up to
/// whole vectors.
MURMELO_KERNEL int32_t compare(const uint8_t* grain,
                               const uint8_t* target,
                               int32_t offsets,
                               int32_t fade) {
    return fade == 100 ? compareWindows(grain, target, offsets, 96)
                       : compareWindows(grain, target, offsets, 192);
}

MURMELO_KERNEL void join(const int32_t* src, int32_t* __restrict dst, int32_t fade, int32_t total) {
    const int32_t gainQ15 = 32768 / fade;
    for (int32_t i = 0; i < fade; i++) {
        dst[i] = (src[i] * i + dst[i] * (fade - i)) * gainQ15 >> 15;
    }
    for (int32_t i = fade; i < total; i++) {
        dst[i] = src[i];
    }
}

}  // namespace

size_t copy(const std::vector<int32_t>& samples) {
    benchmark::DoNotOptimize(std::copy(samples.begin(), samples.end(), outOf(samples.size())));
    benchmark::ClobberMemory();
    return samples.size();
}

size_t reversedCopy(const std::vector<int32_t>& samples) {
    benchmark::DoNotOptimize(
        std::reverse_copy(samples.begin(), samples.end(), outOf(samples.size())));
    benchmark::ClobberMemory();
    return samples.size();
}

size_t filterChain(const std::vector<int32_t>& samples) {
    const std::vector<Filter>& filters = filtersOf(samples);
    int32_t* target = outOf(samples.size());
    float line[Lpc::kOrder + kFrame] = {};
    for (size_t f = 0; f < filters.size(); f++) {
        filter(filters[f].a, &samples[f * kFrame], line, target + f * kFrame);
        std::copy_n(line + kFrame, Lpc::kOrder, line);
    }
    return samples.size();
}

size_t countAndMap(const std::vector<int32_t>& samples) {
    int32_t levels[kLevels] = {};
    for (const int32_t sample : samples) {
        levels[std::abs(sample >> 6)]++;
    }
    benchmark::DoNotOptimize(levels[0]);
    map(samples.data(), levels, outOf(samples.size()), static_cast<int32_t>(samples.size()));
    benchmark::ClobberMemory();
    return samples.size();
}

size_t pasteGrains(const std::vector<int32_t>& samples, const Grains& grains) {
    const int32_t made = grains.search + grains.fade + grains.distance;
    static std::vector<uint8_t> rough(2000, 128);
    std::vector<int32_t> grain(static_cast<size_t>(made));
    const auto count = static_cast<int32_t>(samples.size()) / grains.step;
    const int32_t room = count * grains.distance + made;
    int32_t* target = outOf(static_cast<size_t>(room));
    const int32_t read = made * grains.stretchQ10 / 1024 + 2;
    for (int32_t g = 0; g < count; g++) {
        const int32_t from = std::min(g * grains.step, static_cast<int32_t>(samples.size()) - read);
        if (grains.stretchQ10 == 1024) {
            std::copy_n(&samples[static_cast<size_t>(from)], made, grain.data());
        } else {
            resample(&samples[static_cast<size_t>(from)], grains.stretchQ10, grain.data(), made);
        }
        const int32_t offset =
            compare(rough.data(), rough.data() + made, grains.search, grains.fade);
        join(&grain[static_cast<size_t>(offset)], target + ptrdiff_t{g} * grains.distance,
             grains.fade, made - grains.search);
    }
    return static_cast<size_t>(room);
}

}  // namespace limits
