// SPDX-License-Identifier: MIT
// Times the conversion of 20 seconds from 44.1 kHz to 8 kHz: ours, and another library's
// converters.
#include "Resampler.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <samplerate.h>
#include <vector>

namespace {

constexpr int32_t kFromHz = 44100;
constexpr int32_t kToHz = 8000;
constexpr size_t kSamples = size_t{20} * kFromHz;

/// A sweep over the whole band.
const std::vector<float>& sweep() {
    static const std::vector<float> samples = [] {
        std::vector<float> made;
        double phase = 0;
        for (size_t i = 0; i < kSamples; i++) {
            phase += 3.14159265358979 * static_cast<double>(i) / kSamples;
            made.push_back(static_cast<float>(0.5 * std::sin(phase)));
        }
        return made;
    }();
    return samples;
}

void resample(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<float> out;
        Resampler resampler(kFromHz, kToHz);
        if (!resampler.convert(sweep().data(), kSamples, true, Resampler::kEndless, out)) {
            state.SkipWithError("not converted");
        }
        benchmark::DoNotOptimize(out.data());
    }
}

void resampleWithSamplerate(benchmark::State& state, int converter) {
    for (auto _ : state) {
        std::vector<float> out(kSamples * kToHz / kFromHz + 1);
        SRC_DATA work = {};
        work.data_in = sweep().data();
        work.data_out = out.data();
        work.input_frames = kSamples;
        work.output_frames = static_cast<decltype(work.output_frames)>(out.size());
        work.src_ratio = static_cast<double>(kToHz) / kFromHz;
        if (src_simple(&work, converter, 1) != 0) {
            state.SkipWithError("not converted");
        }
        benchmark::DoNotOptimize(out.data());
    }
}

}  // namespace

BENCHMARK(resample)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resampleWithSamplerate, best, SRC_SINC_BEST_QUALITY)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resampleWithSamplerate, medium, SRC_SINC_MEDIUM_QUALITY)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resampleWithSamplerate, fastest, SRC_SINC_FASTEST)->Unit(benchmark::kMillisecond);
