// SPDX-License-Identifier: MIT
// Times each effect and the clean-up on real speech, other engines that make the same change to the
// same samples, and the least work that any exact version must do.
//
//   effects_bench --benchmark_format=csv
#include "ArrFunc.h"
#include "FxCatalogue.h"
#include "Limits.h"
#include "Peers.h"
#include "Speech.h"
#include "WpMicPostProc.h"
#include "WpRobot.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace {

using Effects = std::vector<std::vector<std::string>>;

constexpr int32_t kSeconds[] = {20, 60};
constexpr double kDrunkPitch = 0.957;  // the middle of the wobble

struct Speech {
    std::vector<int32_t> samples;
    int32_t* array = nullptr;  // the same, as a counted array
    std::vector<int16_t> shorts;
    std::vector<float> floats;
};

const Speech& speechOf(int32_t seconds) {
    static Speech speeches[2];
    Speech& speech = speeches[seconds == kSeconds[0] ? 0 : 1];
    if (speech.samples.empty()) {
        speech.samples = loadSpeech(seconds);
        speech.array = newArray<int32_t>(static_cast<int32_t>(speech.samples.size()));
        std::copy(speech.samples.begin(), speech.samples.end(), speech.array);
        for (const int32_t sample : speech.samples) {
            speech.shorts.push_back(static_cast<int16_t>(sample));
            speech.floats.push_back(static_cast<float>(sample) / 32768.0F);
        }
    }
    return speech;
}

/// A whole run as a screen does it; fetches and frees the result.
size_t runOurs(WavProc& processor, const int32_t* samples) {
    processor.init(samples, 8000);
    while (processor.process() < WavProc::kFinished) {
    }
    int32_t* result = processor.getResult();
    const auto made = static_cast<size_t>(length(result));
    deleteArrFunc(result);
    return made;
}

void add(const std::string& work,
         const std::string& engine,
         const std::function<size_t(const Speech&)>& run) {
    const std::string family = work + "/" + engine + "/";
    for (const int32_t seconds : kSeconds) {
        std::string name = family;
        name.append(std::to_string(seconds)).append("s");
        benchmark::RegisterBenchmark(name.c_str(), [run, seconds](benchmark::State& state) {
            const Speech& speech = speechOf(seconds);
            size_t made = 0;
            for (auto iteration : state) {
                (void)iteration;
                made = run(speech);
            }
            state.counters["samples_out"] = static_cast<double>(made);
            state.counters["times_real_time"] =
                benchmark::Counter(seconds, benchmark::Counter::kIsIterationInvariantRate);
        })->Unit(benchmark::kMillisecond);
    }
}

void addOurs(const std::string& work, WavProc* newProcessor) {
    const std::shared_ptr<WavProc> processor(newProcessor);
    add(work, "murmelo",
        [processor](const Speech& speech) { return runOurs(*processor, speech.array); });
}

void addStretchers(const std::string& work,
                   double pitch,
                   double tempo,
                   const Effects& soxNormal,
                   const Effects& soxQuick) {
    add(work, "soundtouch", [=](const Speech& speech) {
        return peers::soundTouch(speech.floats, static_cast<float>(pitch),
                                 static_cast<float>(tempo));
    });
    add(work, "sox", [=](const Speech& speech) { return peers::sox(speech.samples, soxNormal); });
    add(work, "sox-quick",
        [=](const Speech& speech) { return peers::sox(speech.samples, soxQuick); });
    add(work, "rubberband-r2", [=](const Speech& speech) {
        return peers::rubberBand(speech.floats, pitch, tempo, peers::RubberBandEngine::kFaster);
    });
    add(work, "rubberband-r3", [=](const Speech& speech) {
        return peers::rubberBand(speech.floats, pitch, tempo, peers::RubberBandEngine::kFiner);
    });
}

void addVoices() {
    add("robot", "lpc10", [](const Speech& speech) { return peers::lpc10(speech.shorts); });
    add("flip", "lpc10", [](const Speech& speech) { return peers::lpc10(speech.shorts); });
    add("robot", "codec2", [](const Speech& speech) { return peers::codec2(speech.shorts); });
}

void addLimits() {
    const auto addLimit = [](const std::string& work, size_t (*run)(const std::vector<int32_t>&)) {
        add(work, "limit", [run](const Speech& speech) { return run(speech.samples); });
    };
    const auto addGrains = [](const std::string& work, const limits::Grains& grains) {
        add(work, "limit",
            [grains](const Speech& speech) { return limits::pasteGrains(speech.samples, grains); });
    };
    addLimit("none", limits::copy);
    addLimit("robot", limits::filterChain);
    addLimit("backwards", limits::reversedCopy);
    addGrains("high", {200, 200, 100, 100, 1843});
    addGrains("low", {200, 200, 100, 100, 768});
    addGrains("fast", {200, 100, 100, 100, 1024});
    addGrains("drunk", {250, 500, 200, 100, 980});
    addLimit("flip", limits::filterChain);
    addLimit("clean", limits::countAndMap);
}

int registerAll() {
    WpRobot::fixSeed(1);
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        addOurs(FxCatalogue::at(effect).word, FxCatalogue::newProcessor(effect));
    }
    add("none", "sox", [](const Speech& speech) { return peers::sox(speech.samples, {}); });
    add("backwards", "sox",
        [](const Speech& speech) { return peers::sox(speech.samples, {{"reverse"}}); });
    addStretchers("high", 1.8, 1.0, {{"pitch", "1017.6"}, {"rate", "8000"}},
                  {{"pitch", "-q", "1017.6"}, {"rate", "-q", "8000"}});
    addStretchers("low", 0.75, 1.0, {{"pitch", "-498.0"}, {"rate", "8000"}},
                  {{"pitch", "-q", "-498.0"}, {"rate", "-q", "8000"}});
    addStretchers("fast", 1.0, 2.0, {{"tempo", "2.0"}}, {{"tempo", "-q", "2.0"}});
    addStretchers("drunk", kDrunkPitch, 0.5, {{"pitch", "-76"}, {"rate", "8000"}, {"tempo", "0.5"}},
                  {{"pitch", "-q", "-76"}, {"rate", "-q", "8000"}, {"tempo", "-q", "0.5"}});
    addVoices();
    addOurs("clean", new WpMicPostProc());
    addLimits();
    add("clean", "sox", [](const Speech& speech) {
        return peers::sox(speech.samples, {{"fade", "0.25"},
                                           {"highpass", "250"},
                                           {"compand", "0.01,0.1", "-60,-70,-40,-20,0,-1"}});
    });
    return 0;
}

[[maybe_unused]] const int registered = registerAll();

}  // namespace
