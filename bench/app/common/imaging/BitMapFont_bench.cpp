// SPDX-License-Identifier: MIT
// Times the drawing of a screen full of help text: fourteen lines of about thirty characters.
#include "AppImage.h"
#include "BitMapFont.h"
#include "FontMaker.h"

#include <benchmark/benchmark.h>
#include <memory>

using Osp::Base::String;

namespace {

constexpr int32_t kLines = 14;

void helpScreen(benchmark::State& state, bool clipped) {
    FontMaker maker;
    const std::unique_ptr<BitMapFont> font =
        maker.make(MURMELO_BENCH_FONT, 13, "", FontMaker::Hinting::kNative);
    if (font == nullptr) {
        state.SkipWithError(maker.error().c_str());
        return;
    }
    AppImage image(240, 320, 0xFF203040);
    String line("Press \"Record\" and speak up, plea");
    for (auto _ : state) {
        for (int32_t i = 0; i < kLines; i++) {
            if (clipped) {
                font->drawString(&line, &image, 4, 10 + 20 * i, 6, 12, 228, 296, 0xFFFFFFFF);
            } else {
                font->drawString(&line, &image, 4, 10 + 20 * i, 0xFFFFFFFF);
            }
        }
        benchmark::ClobberMemory();
    }
}

BENCHMARK_CAPTURE(helpScreen, plain, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(helpScreen, clipped, true)->Unit(benchmark::kMicrosecond);

}  // namespace
