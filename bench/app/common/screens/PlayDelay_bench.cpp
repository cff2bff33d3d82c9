// SPDX-License-Identifier: MIT
// Times how long a user waits from the touch on "Play" to the first sample for the speaker, in the
// whole application with every frame in between, for a take of twenty seconds.
//
// The counter "frames" says how many frames the work took; effects_bench times the effects alone.
#include "FxCatalogue.h"
#include "HeadlessHost.h"
#include "OspMain.h"
#include "RunVerdict.h"
#include "Script.h"
#include "Speech.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sndfile.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int32_t kTakeSeconds = 20;
constexpr int32_t kRateHz = 8000;

/// Reads the real clock between the callbacks of a script.
class WatchingHost : public HeadlessHost {
public:
    using HeadlessHost::HeadlessHost;

    void setDoors(HostDoors* offered) override {
        HeadlessHost::setDoors(offered);
        open = offered;
    }

    bool pump(HostListener& listener, int64_t timeoutMs) override {
        const std::string screen = open != nullptr ? open->screenName() : "";
        if (screen == "Play") {  // the last look before the finger comes down
            touched = Clock::now();
            frames = 0;
        } else if (screen == "Playing" && !isPlaying) {  // its first frame has started the speaker
            isPlaying = true;
            started = Clock::now();
            framesUntilPlaying = frames;
        }
        return HeadlessHost::pump(listener, timeoutMs);
    }

    void frameShown(HostFrame* newest) override {
        frames++;
        HeadlessHost::frameShown(newest);
    }

    /// Seconds from the touch to the first sample; -1 if nothing was played.
    double delaySeconds() const {
        return isPlaying ? std::chrono::duration<double>(started - touched).count() : -1;
    }

    int32_t framesUntilPlaying = 0;

private:
    HostDoors* open = nullptr;
    Clock::time_point touched;
    Clock::time_point started;
    int32_t frames = 0;
    bool isPlaying = false;
};

/// A home of its own, with a voice to take; removed at the end.
class Scratch {
public:
    Scratch() {
        char name[] = "/tmp/murmelo_bench_XXXXXX";
        if (mkdtemp(name) == nullptr) {
            std::abort();
        }
        root = name;
        for (const char* folder : {"home", "config"}) {
            std::filesystem::create_directory(path(folder));
        }
        std::vector<int32_t> voice = loadSpeech(kTakeSeconds);
        const std::vector<int16_t> samples(voice.begin(), voice.end());
        SF_INFO info{};
        info.samplerate = kRateHz;
        info.channels = 1;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        SNDFILE* file = sf_open(path("voice.wav").c_str(), SFM_WRITE, &info);
        sf_writef_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
        sf_close(file);
    }

    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    ~Scratch() { std::filesystem::remove_all(root); }

    std::string path(const std::string& name) const { return root + "/" + name; }

private:
    std::string root;
};

void play(benchmark::State& state, int32_t effect) {
    const Scratch scratch;
    std::string text =
        "tap 240 306\nuntil Options\ntake " + scratch.path("voice.wav") + "\nuntil Play\n";
    for (int32_t i = 0; i < effect; i++) {
        text += "swipe left\nwait 1000\n";
    }
    text += "key middle\nuntil Playing\n";
    HostFolders folders;
    folders.res = MURMELO_SOURCE_DIR "/res/Res";
    folders.framework = MURMELO_SOURCE_DIR "/res/framework";
    folders.home = scratch.path("home");
    for (auto _ : state) {
        std::vector<ScriptCommand> script;
        if (Script::parse(text, {"Options", "Play", "Playing"}, script)) {
            state.SkipWithError("the script is wrong");
            return;
        }
        WatchingHost host(folders, script, 0);
        Host::install(&host);
        char name[] = "play_delay_bench";
        char* arguments[] = {name, nullptr};
        OspMain(1, arguments);
        Host::install(nullptr);
        if (host.finish() != RunVerdict::kOk || host.delaySeconds() < 0) {
            state.SkipWithError(host.error().c_str());
            return;
        }
        state.SetIterationTime(host.delaySeconds());
        state.counters["frames"] = host.framesUntilPlaying;
    }
}

const bool kRegistered = [] {
    for (int32_t effect = 0; effect != FxCatalogue::kCount; effect++) {
        const std::string name = std::string("fromPlayToSound/") + FxCatalogue::at(effect).word;
        benchmark::RegisterBenchmark(name.c_str(), play, effect)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace
