// SPDX-License-Identifier: MIT
// Times the copying and the blending of a frame of 240 x 320 onto the 565 surface, and pixman doing
// the same.
#include "CanvasGraphics.h"

#include <benchmark/benchmark.h>
#include <pixman.h>
#include <random>
#include <vector>

namespace {

constexpr int32_t kW = 240;
constexpr int32_t kH = 320;

/// @param alphaMask  which words get another alpha than 255
std::vector<uint32_t> picture(uint32_t alphaMask) {
    std::mt19937 random(1);
    std::vector<uint32_t> words(size_t{kW} * kH);
    for (uint32_t& word : words) {
        word = static_cast<uint32_t>(random()) | (0xFF000000 & ~alphaMask);
    }
    return words;
}

void drawOurs(benchmark::State& state, uint32_t alphaMask, bool processAlpha) {
    const std::vector<uint32_t> words = picture(alphaMask);
    std::vector<uint16_t> surface(size_t{kW} * kH);
    CanvasGraphics g(reinterpret_cast<unsigned char*>(surface.data()), kW, kH);
    for (auto _ : state) {
        g.drawRGB(words.data(), 0, kW, 0, 0, kW, kH, processAlpha);
        benchmark::ClobberMemory();
    }
}

void drawPixman(benchmark::State& state, pixman_op_t op, pixman_format_code_t format) {
    std::vector<uint32_t> words = picture(op == PIXMAN_OP_OVER ? 0xFF000000 : 0);
    std::vector<uint32_t> surface(kW * kH / 2);
    pixman_image_t* source =
        pixman_image_create_bits_no_clear(format, kW, kH, words.data(), kW * 4);
    pixman_image_t* target =
        pixman_image_create_bits_no_clear(PIXMAN_r5g6b5, kW, kH, surface.data(), kW * 2);
    for (auto _ : state) {
        pixman_image_composite32(op, source, nullptr, target, 0, 0, 0, 0, 0, 0, kW, kH);
        benchmark::ClobberMemory();
    }
    pixman_image_unref(source);
    pixman_image_unref(target);
}

BENCHMARK_CAPTURE(drawOurs, plain, 0U, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(drawPixman, plain, PIXMAN_OP_SRC, PIXMAN_x8r8g8b8)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(drawOurs, opaqueScannedForAlpha, 0U, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(drawOurs, blendedStraight, 0xFF000000U, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(drawPixman, blendedPremultiplied, PIXMAN_OP_OVER, PIXMAN_a8r8g8b8)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
