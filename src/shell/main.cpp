// SPDX-License-Identifier: MIT
// murmelo-fx: the voice effects on the command line.
#include "EffectRun.h"
#include "FxCatalogue.h"
#include "FxOptions.h"
#include "InputFile.h"
#include "OutputFile.h"
#include "Problem.h"
#include "ProgressLine.h"
#include "ShellHost.h"
#include "SoundMeter.h"
#include "SoundReader.h"
#include "UsageError.h"
#include "WavFile.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>

namespace {

constexpr int kOk = 0;
constexpr int kSomeFailed = 1;
constexpr int kUsage = 2;

int reportError(const std::string& message, int status) {
    std::cerr << "murmelo-fx: " << message << "\n";
    return status;
}

/// Flushes standard output, which notices a full disk. Returns the exit status.
int finishPrinting(int status) {
    std::cout.flush();
    return std::cout ? status : reportError("standard output: cannot be written", kSomeFailed);
}

std::string inputName(const std::string& path) {
    return path == InputFile::kStandard ? "standard input" : path;
}

std::string outputName(const std::string& path) {
    return path == OutputFile::kStandard ? "standard output" : path;
}

int list() {
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        std::cout << std::left << std::setw(10) << FxCatalogue::at(effect).word << " "
                  << FxCatalogue::at(effect).sentence << "\n";
    }
    return finishPrinting(kOk);
}

std::string seconds(int32_t samples) {
    return std::to_string(samples / WavFile::kRateHz) + " s";
}

/// Applies the effect to one file after the other.
class Applier {
public:
    Applier(const FxOptions& options, ProgressLine& progress)
        : options(options)
        , progress(progress)
        , run(options.effect, options.clean, progress) {}

    Problem apply(const FxOptions::Job& job) {
        OutputFile file(job.output);
        if (!file.open()) {
            return outputName(job.output) + ": " + file.error();
        }
        SoundReader reader(longest(), progress);
        Sound sound = reader.read(job.input);
        if (sound == nullptr) {
            return inputName(job.input) + ": " +
                   (reader.wasTooLong() ? lengthError() : reader.error());
        }
        sound = run.apply(std::move(sound));
        if (sound == nullptr) {
            return inputName(job.input) + ": the effect failed on this sound";
        }
        if (const Problem problem = SoundWriter::write(file, job.kind, sound.get())) {
            return outputName(job.output) + ": " + problem.sentence();
        }
        if (!file.commit()) {
            return outputName(job.output) + ": " + file.error();
        }
        return Problem::none();
    }

private:
    int32_t longest() const {
        return options.longSounds ? EffectRun::effectsLongest(options.effect)
                                  : EffectRun::applicationsLongest();
    }

    std::string lengthError() const {
        const std::string start = "is longer than " + seconds(longest());
        return options.longSounds ? start + ", the most that this effect can work on"
                                  : start + " (--long allows it)";
    }

    const FxOptions& options;
    ProgressLine& progress;
    EffectRun run;
};

Problem measure(const FxOptions::Job& job, ProgressLine& progress) {
    SoundReader reader(kMaxArrayLength, progress);
    const Sound sound = reader.read(job.input);
    if (sound == nullptr) {
        return inputName(job.input) + ": " +
               (reader.wasTooLong() ? "is longer than " + seconds(kMaxArrayLength)
                                    : reader.error());
    }
    const SoundMeter meter(sound.get());
    const double pitchHz = meter.pitchHz();
    char pitch[32] = "no pitch";
    if (pitchHz > 0.0) {
        std::snprintf(pitch, sizeof pitch, "pitch %.1f Hz", pitchHz);
    }
    char facts[160];
    std::snprintf(facts, sizeof facts, "%.3f s, peak %.1f dBFS, RMS %.1f dBFS, %s\n",
                  meter.seconds(), meter.peakDb(), meter.rmsDb(), pitch);
    progress.clear();
    std::cout << inputName(job.input) << ": " << facts;
    return Problem::none();
}

/// Does every job, even if others fail.
template <typename Work>
int doAll(const FxOptions& options, ProgressLine& progress, Work work) {
    int status = kOk;
    size_t number = 0;
    for (const FxOptions::Job& job : options.jobs) {
        progress.start(inputName(job.input), ++number, options.jobs.size());
        if (const Problem problem = work(job)) {
            progress.clear();
            status = reportError(problem.sentence(), kSomeFailed);
        }
    }
    return finishPrinting(status);
}

int applyAll(const FxOptions& options, ProgressLine& progress) {
    if (!options.outFolder.empty()) {
        std::error_code error;
        std::filesystem::create_directories(options.outFolder, error);
        if (error) {
            return reportError(options.outFolder + ": cannot be made: " + error.message(),
                               kSomeFailed);
        }
    }
    const ShellHost host(options.seed);
    Applier applier(options, progress);
    return doAll(options, progress,
                 [&applier](const FxOptions::Job& job) { return applier.apply(job); });
}

}  // namespace

int main(int argc, char** argv) {
    FxOptions options;
    if (const Problem mistake = options.parse(argc, argv)) {
        std::cerr << usageError("murmelo-fx", mistake.sentence());
        return kUsage;
    }
    ProgressLine progress;
    switch (options.task) {
    case FxOptions::Task::kApply:
        return applyAll(options, progress);
    case FxOptions::Task::kMeasure:
        return doAll(options, progress,
                     [&progress](const FxOptions::Job& job) { return measure(job, progress); });
    case FxOptions::Task::kList:
        return list();
    default:
        return finishPrinting(kOk);
    }
}
