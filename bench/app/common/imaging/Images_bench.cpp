// SPDX-License-Identifier: MIT
// Times the pixel loops on a picture of the canvas's size, and pixman doing the same job.
//
//     imaging_bench --benchmark_format=csv
#include "AppImage.h"
#include "PixProps.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <pixman.h>

namespace {

constexpr int32_t kWidthPx = 240;
constexpr int32_t kHeightPx = 320;
constexpr int32_t kOpacity = 128;
constexpr uint32_t kHalfRedArgb = 0x80400000;

/// The same noise in every run.
class Noise {
public:
    uint32_t next() {
        state = state * 1664525 + 1013904223;
        return state >> 8;
    }

private:
    uint32_t state = 1;
};

/// The picture that is blended: pixels of random alpha, or an opaque disc with a soft edge on
/// transparent pixels, which is like the pictures of a user interface.
enum class Kind { kMixed, kPicture };

constexpr double kDiscRadiusPx = 100;
constexpr double kSoftEdgePx = 4;

uint32_t discAlpha(int32_t x, int32_t y) {
    const double fromEdge = kDiscRadiusPx - std::hypot(x - kWidthPx / 2, y - kHeightPx / 2);
    return static_cast<uint32_t>(std::clamp(fromEdge * 255 / kSoftEdgePx, 0.0, 255.0));
}

struct Pictures {
    explicit Pictures(Kind kind = Kind::kMixed) {
        Noise noise;
        for (int32_t i = 0; i < kWidthPx * kHeightPx; i++) {
            const uint32_t alpha =
                kind == Kind::kMixed ? noise.next() & 255 : discAlpha(i % kWidthPx, i / kWidthPx);
            src.writableRows(0, src.h)[i] =
                AppImage::premult(alpha << 24 | (noise.next() & 0xFFFFFF));
        }
    }

    AppImage dst{kWidthPx, kHeightPx, 0xFF336699u};
    AppImage src{kWidthPx, kHeightPx};
};

/// An image as pixman sees it.
class PixmanImage {
public:
    explicit PixmanImage(AppImage& image)
        : image(pixman_image_create_bits(
              PIXMAN_a8r8g8b8, image.w, image.h, image.writableRows(0, image.h), image.w * 4)) {}

    ~PixmanImage() { pixman_image_unref(image); }

    PixmanImage(const PixmanImage&) = delete;
    PixmanImage& operator=(const PixmanImage&) = delete;

    // NOLINTNEXTLINE(google-explicit-constructor): goes into its functions as it is
    operator pixman_image_t*() const { return image; }

private:
    pixman_image_t* image;
};

/// Runs one of our operations again and again.
template <typename Operation>
void repeat(benchmark::State& state, Operation operation, Kind kind = Kind::kMixed) {
    Pictures pictures(kind);
    for (auto _ : state) {
        operation(pictures);
        benchmark::ClobberMemory();
    }
}

void pixmanOver(benchmark::State& state, Kind kind, int32_t opacity256) {
    Pictures pictures(kind);
    PixmanImage src(pictures.src);
    PixmanImage dst(pictures.dst);
    const pixman_color_t alpha = {0, 0, 0, static_cast<uint16_t>(opacity256 * 0x101)};
    pixman_image_t* mask = opacity256 == 256 ? nullptr : pixman_image_create_solid_fill(&alpha);
    for (auto _ : state) {
        pixman_image_composite32(PIXMAN_OP_OVER, src, mask, dst, 0, 0, 0, 0, 0, 0, kWidthPx,
                                 kHeightPx);
        benchmark::ClobberMemory();
    }
    if (mask != nullptr) {
        pixman_image_unref(mask);
    }
}

void pixmanColour(benchmark::State& state, pixman_op_t op) {
    Pictures pictures;
    PixmanImage dst(pictures.dst);
    const pixman_color_t halfRed = {0x4040, 0, 0, 0x8080};
    pixman_image_t* colour = pixman_image_create_solid_fill(&halfRed);
    for (auto _ : state) {
        pixman_image_composite32(op, colour, nullptr, dst, 0, 0, 0, 0, 0, 0, kWidthPx, kHeightPx);
        benchmark::ClobberMemory();
    }
    pixman_image_unref(colour);
}

template <Kind kind>
void over(benchmark::State& state) {
    repeat(
        state, [](Pictures& p) { p.dst.blend(&p.src, 0, 0, kWidthPx, kHeightPx, 0, 0); }, kind);
}

template <Kind kind>
void overPixman(benchmark::State& state) {
    pixmanOver(state, kind, 256);
}

template <Kind kind>
void opacity(benchmark::State& state) {
    repeat(
        state, [](Pictures& p) { p.dst.blend(&p.src, 0, 0, kWidthPx, kHeightPx, 0, 0, kOpacity); },
        kind);
}

template <Kind kind>
void opacityPixman(benchmark::State& state) {
    pixmanOver(state, kind, kOpacity);
}

/// Only ours: pixman has no such operation.
void properties(benchmark::State& state) {
    PixProps props(300, 128, 200);
    repeat(state,
           [&props](Pictures& p) { p.dst.blend(&p.src, 0, 0, kWidthPx, kHeightPx, 0, 0, &props); });
}

void colourFill(benchmark::State& state) {
    repeat(state, [](Pictures& p) { p.dst.set(kHalfRedArgb, 0, 0, kWidthPx, kHeightPx); });
}

void colourFillPixman(benchmark::State& state) {
    pixmanColour(state, PIXMAN_OP_SRC);
}

void colourBlend(benchmark::State& state) {
    repeat(state, [](Pictures& p) { p.dst.blend(kHalfRedArgb, 0, 0, kWidthPx, kHeightPx); });
}

void colourBlendPixman(benchmark::State& state) {
    pixmanColour(state, PIXMAN_OP_OVER);
}

void mask(benchmark::State& state) {
    repeat(state, [](Pictures& p) {
        p.dst.blend(kHalfRedArgb, &p.src, 0, 0, kWidthPx, kHeightPx, 0, 0, nullptr);
    });
}

void premultiply(benchmark::State& state) {
    repeat(state, [](Pictures& p) { p.src.premult(); });
}

void copy(benchmark::State& state) {
    repeat(state, [](Pictures& p) { p.dst.set(&p.src); });
}

}  // namespace

BENCHMARK(over<Kind::kMixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(overPixman<Kind::kMixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(over<Kind::kPicture>)->Unit(benchmark::kMicrosecond);
BENCHMARK(overPixman<Kind::kPicture>)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacity<Kind::kMixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacityPixman<Kind::kMixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacity<Kind::kPicture>)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacityPixman<Kind::kPicture>)->Unit(benchmark::kMicrosecond);
BENCHMARK(properties)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourFill)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourFillPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourBlend)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourBlendPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(mask)->Unit(benchmark::kMicrosecond);
BENCHMARK(premultiply)->Unit(benchmark::kMicrosecond);
BENCHMARK(copy)->Unit(benchmark::kMicrosecond);
