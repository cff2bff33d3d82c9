// The pixel loops on a picture of the canvas' size, beside pixman doing the same job.
//
//     imaging_bench --benchmark_format=csv
#include "AppImage.h"
#include "PixProps.h"

#include <benchmark/benchmark.h>
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

/// Premultiplied; a third transparent, a third opaque, the rest between, in runs as pictures have.
void paintMixed(AppImage& image) {
    Noise noise;
    uint32_t alpha = 0;
    for (int32_t i = 0; i < kWidthPx * kHeightPx; i++) {
        if (noise.next() % 16 == 0) {
            const uint32_t kind = noise.next() % 3;
            alpha = kind == 0 ? 0 : (kind == 1 ? 255 : noise.next() & 255);
        }
        image.pixels[i] = AppImage::premult(alpha << 24 | (noise.next() & 0xFFFFFF));
    }
}

struct Pictures {
    Pictures() { paintMixed(src); }

    AppImage dst{kWidthPx, kHeightPx, 0xFF336699u};
    AppImage src{kWidthPx, kHeightPx};
};

/// An image as pixman sees it.
class PixmanImage {
public:
    explicit PixmanImage(AppImage& image)
        : image(pixman_image_create_bits(
              PIXMAN_a8r8g8b8, image.w, image.h, image.pixels, image.w * 4)) {}

    ~PixmanImage() { pixman_image_unref(image); }

    PixmanImage(const PixmanImage&) = delete;
    PixmanImage& operator=(const PixmanImage&) = delete;

    operator pixman_image_t*() const { return image; }

private:
    pixman_image_t* image;
};

/// Runs one of our operations again and again.
template <typename Operation>
void repeat(benchmark::State& state, Operation operation) {
    Pictures pictures;
    for (auto _ : state) {
        operation(pictures);
        benchmark::ClobberMemory();
    }
}

void pixmanComposite(benchmark::State& state, pixman_op_t op, uint32_t maskAlpha) {
    Pictures pictures;
    PixmanImage src(pictures.src);
    PixmanImage dst(pictures.dst);
    const auto alpha = static_cast<uint16_t>(maskAlpha * 0x101);
    const pixman_color_t opacity = {0, 0, 0, alpha};
    pixman_image_t* mask = maskAlpha == 255 ? nullptr : pixman_image_create_solid_fill(&opacity);
    for (auto _ : state) {
        pixman_image_composite32(op, src, mask, dst, 0, 0, 0, 0, 0, 0, kWidthPx, kHeightPx);
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

void over(benchmark::State& state) {
    repeat(state, [](Pictures& p) { p.dst.blend(&p.src, 0, 0, kWidthPx, kHeightPx, 0, 0); });
}

void overPixman(benchmark::State& state) {
    pixmanComposite(state, PIXMAN_OP_OVER, 255);
}

void opacity(benchmark::State& state) {
    repeat(state,
           [](Pictures& p) { p.dst.blend(&p.src, 0, 0, kWidthPx, kHeightPx, 0, 0, kOpacity); });
}

void opacityPixman(benchmark::State& state) {
    pixmanComposite(state, PIXMAN_OP_OVER, kOpacity);
}

/// pixman has no such operation.
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

BENCHMARK(over)->Unit(benchmark::kMicrosecond);
BENCHMARK(overPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacity)->Unit(benchmark::kMicrosecond);
BENCHMARK(opacityPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(properties)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourFill)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourFillPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourBlend)->Unit(benchmark::kMicrosecond);
BENCHMARK(colourBlendPixman)->Unit(benchmark::kMicrosecond);
BENCHMARK(mask)->Unit(benchmark::kMicrosecond);
BENCHMARK(premultiply)->Unit(benchmark::kMicrosecond);
BENCHMARK(copy)->Unit(benchmark::kMicrosecond);
