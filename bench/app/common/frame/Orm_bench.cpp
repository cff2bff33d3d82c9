// SPDX-License-Identifier: MIT
// Times the event loop: scheduling among pending events, a frame without an event, and the display.
#include "AppImage.h"
#include "Assembly.h"
#include "GameInterface.h"
#include "LoopHost.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspGraphics.h"
#include "TestScreen.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <pixman.h>
#include <random>
#include <vector>

namespace {

/// Schedules one event into a list of pending ones and delivers the first; the argument is the
/// list's length.
void scheduleAndDeliver(benchmark::State& state) {
    LoopHost host;
    Assembly::install();
    const auto midlet = std::make_unique<Murmelo>();
    TestScreen screen({Orm::EV_T_UPDATE});
    Orm::registerListener(&screen);
    screen.handler = [&screen](Event*) { screen.heard.clear(); };
    std::mt19937 random(1);
    for (int64_t i = 0; i < state.range(0); i++) {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, static_cast<int32_t>(random() % 1000));
    }
    for (auto _ : state) {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, static_cast<int32_t>(random() % 1000));
        host.nowMs = Orm::firstEvent->time;
        Orm::canvas->run();
    }
}

/// A tick with nothing due: nothing is painted, so no row is converted; the operations are noted on
/// the display's canvas.
void frameWithoutEvent(benchmark::State& state) {
    LoopHost host;
    GameInterface game;
    Osp::Graphics::Canvas canvas;
    for (auto _ : state) {
        game.AppPaint(&canvas);
        canvas.Show();
    }
}

/// The same while the display is shown: the painted rows are compared with the last ones, and the
/// display's pixels are worked out for those that differ. The argument is the number of rows of the
/// picture that are painted; each differs in one pixel.
void frameOnTheDisplay(benchmark::State& state) {
    const auto rows = static_cast<int32_t>(state.range(0));
    LoopHost host;
    GameInterface game;
    Osp::Graphics::Canvas canvas;
    std::vector<uint16_t> display(size_t{480} * 800);
    uint32_t colour = 0xFF000000;
    for (auto _ : state) {
        Orm::getScreen()->set(colour += 0x000808, 100, 0, 1, rows);
        game.AppPaint(&canvas);
        canvas.Show();
        host.frame->composeRows(display.data(), 480 * 2, host.frame->takeChanges());
        benchmark::DoNotOptimize(display.data());
    }
}

/// Only works out the display's pixels.
void composeTheDisplay(benchmark::State& state) {
    LoopHost host;
    GameInterface game;
    Osp::Graphics::Canvas canvas;
    std::vector<uint16_t> display(size_t{480} * 800);
    game.AppPaint(&canvas);
    canvas.Show();
    for (auto _ : state) {
        host.frame->compose(display.data(), 480 * 2);
        benchmark::DoNotOptimize(display.data());
    }
}

/// The same work by pixman: a fill of the band, and the picture doubled below it.
void composeWithPixman(benchmark::State& state) {
    std::vector<uint32_t> picture(size_t{240} * 320 / 2, 0x12345678);
    std::vector<uint32_t> display(size_t{480} * 800 / 2);
    pixman_image_t* source =
        pixman_image_create_bits(PIXMAN_r5g6b5, 240, 320, picture.data(), 240 * 2);
    pixman_image_t* target =
        pixman_image_create_bits(PIXMAN_r5g6b5, 480, 800, display.data(), 480 * 2);
    pixman_transform_t half;
    pixman_transform_init_scale(&half, pixman_fixed_1 / 2, pixman_fixed_1 / 2);
    pixman_image_set_transform(source, &half);
    pixman_image_set_filter(source, PIXMAN_FILTER_NEAREST, nullptr, 0);
    for (auto _ : state) {
        pixman_fill(display.data(), 480 / 2, 16, 0, 0, 480, 160, 0x2104);
        pixman_image_composite32(PIXMAN_OP_SRC, source, nullptr, target, 0, 0, 0, 0, 0, 160, 480,
                                 640);
        benchmark::DoNotOptimize(display.data());
        benchmark::ClobberMemory();
    }
    pixman_image_unref(source);
    pixman_image_unref(target);
}

/// For comparison: fills the display's memory.
void fillTheDisplay(benchmark::State& state) {
    std::vector<uint16_t> display(size_t{480} * 800);
    for (auto _ : state) {
        std::fill(display.begin(), display.end(), static_cast<uint16_t>(state.iterations()));
        benchmark::DoNotOptimize(display.data());
        benchmark::ClobberMemory();
    }
}

}  // namespace

BENCHMARK(scheduleAndDeliver)->Arg(10)->Arg(1000)->Arg(10000);
BENCHMARK(frameWithoutEvent);
BENCHMARK(frameOnTheDisplay)->Arg(1)->Arg(100)->Arg(320);
BENCHMARK(composeTheDisplay);
BENCHMARK(composeWithPixman);
BENCHMARK(fillTheDisplay);
