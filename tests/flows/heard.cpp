// SPDX-License-Identifier: MIT
// flow-heard: compares what the speaker has played with the effect of what the microphone has
// heard.
//
//   flow-heard SPEAKER.wav EFFECT VOICE.wav TAKE_MS VOLUME [heard=MS] [clock=MS]
//
// TAKE_MS may be "all": the voice became the take as it is. EFFECT is the command line tool's word.
// The expected sound is worked out from the voice and the effects, without a screen.
#include "ArrFunc.h"
#include "FxCatalogue.h"
#include "ShellHost.h"
#include "SoundFile.h"
#include "WavProc.h"
#include "WpMicPostProc.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int32_t kMicrophoneHz = 16000;
constexpr int32_t kRateHz = 8000;

using Samples = std::vector<int16_t>;

Samples read(const char* path, int32_t rateHz) {
    Samples samples;
    if (const Problem problem = SoundFile::read(path, rateHz, INT64_MAX, samples)) {
        std::fprintf(stderr, "flow-heard: %s\n", problem.sentence().c_str());
        std::exit(2);
    }
    return samples;
}

/// Replaces each pair by its mean, rounded down.
Samples halved(const Samples& samples) {
    Samples half;
    for (size_t i = 0; i + 1 < samples.size(); i += 2) {
        half.push_back(static_cast<int16_t>((samples[i] + samples[i + 1]) >> 1));
    }
    return half;
}

Samples processed(const Samples& samples, WavProc& processor) {
    auto* array = newArray<int32_t>(static_cast<int32_t>(samples.size()));
    std::copy(samples.begin(), samples.end(), array);
    processor.init(array, kRateHz);
    deleteArrFunc(array);
    while (processor.process() < WavProc::kFinished) {
    }
    int32_t* result = processor.getResult();
    Samples out;
    for (int32_t i = 0; i < length(result); i++) {
        out.push_back(static_cast<int16_t>(result[i]));
    }
    deleteArrFunc(result);
    return out;
}

int32_t number(const char* text) {
    return static_cast<int32_t>(std::strtol(text, nullptr, 10));
}

/// The number after a word of the command line.
std::optional<int32_t> option(int argc, char** argv, const std::string& word) {
    for (int i = 6; i < argc; i++) {
        const std::string argument = argv[i];
        if (argument.compare(0, word.size(), word) == 0) {
            return number(argument.c_str() + word.size());
        }
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const int32_t effect = argc >= 6 ? FxCatalogue::find(argv[2]) : -1;
    if (effect < 0) {
        std::fprintf(stderr,
                     "flow-heard SPEAKER EFFECT VOICE TAKE_MS VOLUME [heard=MS] [clock=MS]\n");
        return 2;
    }
    const Samples found = read(argv[1], kRateHz);
    Samples take = read(argv[3], kMicrophoneHz);
    if (std::string(argv[4]) != "all") {
        take.resize(static_cast<size_t>(number(argv[4])) * kMicrophoneHz / 1000);
    }
    const int32_t volume = number(argv[5]);

    const ShellHost host(option(argc, argv, "clock="));
    const std::optional<int32_t> heardMs = option(argc, argv, "heard=");

    WpMicPostProc cleanUp;
    const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(effect));
    Samples expected = processed(processed(halved(take), cleanUp), *processor);
    if (heardMs) {
        expected.resize(static_cast<size_t>(*heardMs) * kRateHz / 1000);
    }
    for (int16_t& sample : expected) {
        sample = static_cast<int16_t>(sample * volume / 100);
    }
    const bool silent =
        std::all_of(found.begin(), found.end(), [](int16_t sample) { return sample == 0; });
    if (found == expected && silent == (volume == 0)) {
        return 0;
    }
    const auto [mine, theirs] =
        std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    std::fprintf(stderr, "flow-heard: %zu samples instead of %zu, alike up to %td%s\n",
                 found.size(), expected.size(), mine - expected.begin(),
                 silent ? ", all silent" : "");
    (void)theirs;
    return 1;
}
