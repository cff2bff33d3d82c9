// SPDX-License-Identifier: MIT
// Times the reading and decoding of all pictures and fonts under "/Res/", and reports the memory
// that they take; times the layout and the painting of a text.
#include "AppImage.h"
#include "Bounds.h"
#include "OspBase.h"
#include "PaTextArea.h"
#include "Res.h"
#include "Str.h"
#include "TestHost.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <png.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr double kKiB = 1024.0;

std::vector<std::string> filesWith(const std::string& extension) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(MURMELO_SOURCE "/res/Res")) {
        if (entry.path().extension() == extension) {
            names.push_back(entry.path().filename().string());
        }
    }
    return names;
}

double residentKiB() {
    std::ifstream statm("/proc/self/statm");
    double total = 0;
    double resident = 0;
    statm >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / kKiB;
}

class ResHost : public TestHost {
public:
    ResHost() {
        mappedFolders.res = MURMELO_SOURCE "/res/Res";
        Res::static_ctor();
        for (const std::string& name : filesWith(".png")) {
            Osp::Base::String path(("/Res/" + name).c_str());
            pictures.push_back(Res::addImage(&path, true));
        }
        for (const std::string& name : filesWith(".bmf")) {
            fonts.push_back(Res::addFont(("/Res/" + name).c_str()));
        }
    }

    ~ResHost() override { Res::static_dtor(); }

    void loadAll() {
        for (const int32_t id : pictures) {
            benchmark::DoNotOptimize(Res::getImage(id));
        }
        for (const int32_t id : fonts) {
            benchmark::DoNotOptimize(Res::getFont(id));
        }
    }

    std::vector<int32_t> pictures;
    std::vector<int32_t> fonts;
};

void loadEverything(benchmark::State& state) {
    ResHost host;
    const double beforeKiB = residentKiB();
    host.loadAll();
    state.counters["resident_KiB"] = residentKiB() - beforeKiB;
    double pixels = 0;
    for (const int32_t id : host.pictures) {
        const AppImage* image = Res::getImage(id);
        pixels += image != nullptr ? image->w * image->h : 0;
    }
    state.counters["pixels_KiB"] = pixels * 4 / kKiB;
    for (auto _ : state) {
        Res::freeAll();
        host.loadAll();
    }
}

void decodeWithLibpng(benchmark::State& state) {
    const std::vector<std::string> names = filesWith(".png");
    for (auto _ : state) {
        for (const std::string& name : names) {
            png_image png = {};
            png.version = PNG_IMAGE_VERSION;
            const std::string path = MURMELO_SOURCE "/res/Res/" + name;
            if (png_image_begin_read_from_file(&png, path.c_str()) != 0) {
                png.format = PNG_FORMAT_BGRA;
                std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(png));
                png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr);
                benchmark::DoNotOptimize(pixels.data());
            }
        }
    }
}

void layOutHelp(benchmark::State& state) {
    ResHost host;
    Str::static_ctor();
    PaTextArea area;
    area.set(Str::str_HELP_TXT, Res::addFont("/Res/bmf13.bmf"), 0xFFFFFFFF, Bounds::kCentre, 30, 60,
             180, 200);
    for (auto _ : state) {
        area.refresh();
    }
    Str::static_dtor();
}

void paintHelp(benchmark::State& state) {
    ResHost host;
    Str::static_ctor();
    PaTextArea area;
    area.set(Str::str_HELP_TXT, Res::addFont("/Res/bmf13.bmf"), 0xFFFFFFFF, Bounds::kCentre, 30, 60,
             180, 200);
    AppImage screen(240, 320, 0xFF000000);
    Bounds clip(0, 0, 240, 320);
    for (auto _ : state) {
        area.paintOn(&screen, 0, 0, &clip, nullptr);
    }
    Str::static_dtor();
}

BENCHMARK(loadEverything)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeWithLibpng)->Unit(benchmark::kMillisecond);
BENCHMARK(layOutHelp)->Unit(benchmark::kMicrosecond);
BENCHMARK(paintHelp)->Unit(benchmark::kMicrosecond);

}  // namespace
