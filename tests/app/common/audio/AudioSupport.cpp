// SPDX-License-Identifier: MIT
// Shared by the tests of the sound engine: recordings, noise, tones, whole runs and the pitch
// meter.
#include "AudioSupport.h"

#include "WavFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <random>

namespace audio {

namespace {

constexpr double kPi = 3.14159265358979323846;

uint32_t little(const std::vector<unsigned char>& bytes, size_t at) {
    uint32_t value = 0;
    for (size_t i = 4; i > 0; i--) {
        value = value << 8 | bytes[at + i - 1];
    }
    return value;
}

}  // namespace

Samples noise(int32_t count, int32_t amplitude, uint32_t seed) {
    std::mt19937 random(seed);
    Samples samples(static_cast<size_t>(count));
    for (int32_t& sample : samples) {
        sample =
            static_cast<int32_t>(random() % static_cast<uint32_t>(2 * amplitude + 1)) - amplitude;
    }
    return samples;
}

Samples roughSignal(int32_t count, uint32_t seed) {
    std::mt19937 random(seed);
    Samples samples(static_cast<size_t>(count));
    for (size_t i = 0; i < samples.size(); i++) {
        const size_t part = i / 700 % 5;
        const auto full = static_cast<int32_t>(random() % 65536) - 32768;
        const double swell = std::sin(static_cast<double>(i) * 0.05) * 20000.0;
        if (part == 1) {
            samples[i] = full;
        } else if (part == 2) {
            samples[i] = (random() & 1) != 0 ? 32767 : -32768;
        } else if (part >= 3) {
            samples[i] = static_cast<int32_t>(swell) + full / 64;
        }
    }
    return samples;
}

Samples glide(int32_t count, double fromHz, double toHz) {
    Samples samples;
    double phase = 0.0;
    for (int32_t i = 0; i < count; i++) {
        double value = 0.0;
        for (int32_t harmonic = 1; harmonic <= 8; harmonic++) {
            value += std::sin(phase * harmonic) / harmonic;
        }
        samples.push_back(static_cast<int32_t>(value * 8000.0));
        phase += 2.0 * kPi * (fromHz + (toHz - fromHz) * i / count) / 8000.0;
    }
    return samples;
}

Samples speech(const std::string& name) {
    const std::string path = "/usr/share/asterisk/sounds/en_US_f_Allison/" + name + ".wav";
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        ADD_FAILURE() << path << " is missing: install asterisk-core-sounds-en-wav";
        return Samples(8000);
    }
    const std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(file)),
                                           std::istreambuf_iterator<char>());
    for (size_t at = 12; at + 8 <= bytes.size(); at += 8 + little(bytes, at + 4)) {
        if (bytes[at] != 'd' || bytes[at + 1] != 'a') {
            continue;
        }
        Samples samples;
        const size_t end = std::min(bytes.size(), at + 8 + little(bytes, at + 4));
        for (size_t i = at + 8; i + 1 < end; i += 2) {
            samples.push_back(static_cast<int16_t>(bytes[i] | bytes[i + 1] << 8));
        }
        return samples;
    }
    ADD_FAILURE() << path << " has no data chunk";
    return Samples(8000);
}

Samples speechOf(int32_t seconds) {
    Samples samples;
    for (const char* name : {"demo-instruct", "demo-congrats", "demo-echotest"}) {
        const Samples more = speech(name);
        samples.insert(samples.end(), more.begin(), more.end());
    }
    const auto wanted = static_cast<size_t>(seconds) * 8000;
    EXPECT_GE(samples.size(), wanted);
    samples.resize(wanted);
    return samples;
}

Samples run(WavProc& processor, const Samples& samples) {
    std::vector<int32_t> progress;
    return run(processor, samples, progress);
}

Samples run(WavProc& processor, const Samples& samples, std::vector<int32_t>& progress) {
    processor.init(toArray(samples).get(), 8000);
    while (processor.getLastProgress() < WavProc::kFinished) {
        progress.push_back(processor.process());
        if (progress.back() < 0) {
            ADD_FAILURE() << "the run ended with an error";
            break;
        }
    }
    const Array<int32_t> result(processor.getResult());
    return result == nullptr ? Samples() : toVector(result.get());
}

double pitchHz(const int32_t* samples, int32_t count) {
    constexpr int32_t kShortest = 16;
    constexpr int32_t kLongest = 133;
    const int32_t window = count - kLongest - 1;
    std::vector<double> likeness(kLongest + 2);
    double best = 0.0;
    for (int32_t lag = kShortest - 1; lag <= kLongest + 1; lag++) {
        double product = 0.0;
        double first = 1.0;
        double second = 1.0;
        for (int32_t i = 0; i < window; i++) {
            const double a = samples[i];
            const double b = samples[i + lag];
            product += a * b;
            first += a * a;
            second += b * b;
        }
        likeness[static_cast<size_t>(lag)] = product / std::sqrt(first * second);
        if (lag >= kShortest && lag <= kLongest) {
            best = std::max(best, likeness[static_cast<size_t>(lag)]);
        }
    }
    // The shortest lag that is nearly as good as the best: a multiple of the period is as good.
    for (size_t lag = kShortest; best > 0.6 && lag <= kLongest; lag++) {
        const double before = likeness[lag - 1];
        const double here = likeness[lag];
        const double after = likeness[lag + 1];
        if (here > 0.9 * best && here >= before && here >= after) {
            const double bend = before - 2.0 * here + after;
            const double shift = bend == 0.0 ? 0.0 : 0.5 * (before - after) / bend;
            return 8000.0 / (static_cast<double>(lag) + shift);
        }
    }
    return 0.0;
}

double medianPitchHz(const Samples& samples) {
    constexpr int32_t kWindow = 480;
    std::vector<double> pitches;
    for (size_t at = 0; at + kWindow <= samples.size(); at += 160) {
        double energy = 0.0;
        for (size_t i = at; i < at + kWindow; i++) {
            energy += static_cast<double>(samples[i]) * samples[i];
        }
        const double pitch = pitchHz(&samples[at], kWindow);
        if (energy > kWindow * 500.0 * 500.0 && pitch > 0.0) {
            pitches.push_back(pitch);
        }
    }
    if (pitches.empty()) {
        return 0.0;
    }
    std::nth_element(pitches.begin(), pitches.begin() + static_cast<int64_t>(pitches.size() / 2),
                     pitches.end());
    return pitches[pitches.size() / 2];
}

}  // namespace audio
