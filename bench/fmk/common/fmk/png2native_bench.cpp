// SPDX-License-Identifier: MIT
// Times the decoding of the application's background to 565, and libpng's to 32-bit words.
#include "ArrFunc.h"
#include "png2native.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <png.h>
#include <string>
#include <vector>

namespace {

std::vector<unsigned char> load(const char* name) {
    std::ifstream in(std::string(MURMELO_RES "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void decodeOurs(benchmark::State& state, const char* name) {
    const std::vector<unsigned char> file = load(name);
    for (auto _ : state) {
        uint16_t* pixels = nullptr;
        uint8_t* alpha = nullptr;
        int32_t w = 0;
        int32_t h = 0;
        bool hasAlpha = false;
        png2native(file.data(), static_cast<int32_t>(file.size()), &pixels, &alpha, &w, &h,
                   &hasAlpha);
        benchmark::DoNotOptimize(pixels);
        deleteArrFunc(pixels);
        deleteArrFunc(alpha);
    }
}

void decodeLibpng(benchmark::State& state, const char* name) {
    const std::vector<unsigned char> file = load(name);
    for (auto _ : state) {
        png_image image = {};
        image.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) {
            state.SkipWithError("libpng cannot read the picture");
            return;
        }
        image.format = PNG_FORMAT_BGRA;
        std::vector<unsigned char> words(PNG_IMAGE_SIZE(image));
        png_image_finish_read(&image, nullptr, words.data(), 0, nullptr);
        benchmark::DoNotOptimize(words.data());
    }
}

BENCHMARK_CAPTURE(decodeOurs, background, "background_0_0_240_320.png")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decodeLibpng, background, "background_0_0_240_320.png")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decodeOurs, robot, "robot_64_43_103_150.png")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decodeLibpng, robot, "robot_64_43_103_150.png")->Unit(benchmark::kMicrosecond);

}  // namespace
