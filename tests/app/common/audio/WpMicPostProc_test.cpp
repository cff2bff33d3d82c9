// SPDX-License-Identifier: MIT
// The clean-up of a recording equals its plain model: fades, filter and level curve.
#include "AudioSupport.h"
#include "SlowEffects.h"
#include "WpMicPostProc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

using audio::Samples;

namespace {

/// Shows the source after the first stage.
class OpenMicPostProc : public WpMicPostProc {
public:
    Samples sourceNow() const { return audio::toVector(source); }
};

Samples afterFirstStage(const Samples& samples) {
    OpenMicPostProc proc;
    proc.init(audio::toArray(samples).get(), 8000);
    EXPECT_EQ(200, proc.process());
    return proc.sourceNow();
}

/// What the filter makes of a source that was not faded.
Samples filtered(const Samples& samples) {
    Samples out;
    for (size_t i = 0; i < samples.size(); i++) {
        int32_t sum = 0;
        for (size_t back = 0; back < 32 && back <= i; back++) {
            sum += samples[i - back];
        }
        out.push_back(std::clamp((i >= 16 ? samples[i - 16] : 0) - (sum >> 5), -32768, 32767));
    }
    return out;
}

}  // namespace

TEST(WpMicPostProc, isThePlainModelOnNoise) {
    WpMicPostProc proc;
    for (const int32_t count : {1, 2, 31, 160, 4095, 4096, 4097, 4098, 30000}) {
        const Samples samples = audio::roughSignal(count, static_cast<uint32_t>(count));
        ASSERT_EQ(audio::slow::cleanUp(samples), audio::run(proc, samples)) << count;
    }
}

TEST(WpMicPostProc, isThePlainModelAtEveryLoudness) {
    WpMicPostProc proc;
    for (int32_t amplitude = 1; amplitude < 32768; amplitude = amplitude * 3 / 2 + 1) {
        const Samples samples = audio::noise(6000, amplitude);
        ASSERT_EQ(audio::slow::cleanUp(samples), audio::run(proc, samples)) << amplitude;
    }
}

TEST(WpMicPostProc, isThePlainModelOnRealSpeech) {
    WpMicPostProc proc;
    const Samples samples = audio::speechOf(20);
    EXPECT_EQ(audio::slow::cleanUp(samples), audio::run(proc, samples));
}

TEST(WpMicPostProc, worksInThreeCalls) {
    WpMicPostProc proc;
    std::vector<int32_t> progress;
    audio::run(proc, audio::noise(9000, 1000), progress);
    EXPECT_EQ((std::vector<int32_t>{200, 300, 1024}), progress);
}

TEST(WpMicPostProc, soundOf4096SamplesIsNotFadedAndOneOf4097Is) {
    const Samples unfaded = audio::noise(4096, 30000);
    EXPECT_EQ(filtered(unfaded), afterFirstStage(unfaded));
    Samples faded = audio::noise(4097, 30000);
    const Samples before = faded;
    faded[0] = 0;
    for (size_t i = 1; i < 2048; i++) {
        faded[i] = (faded[i] * static_cast<int32_t>(i)) >> 12;
        faded[4097 - i] = (faded[4097 - i] * static_cast<int32_t>(i)) >> 12;
    }
    EXPECT_EQ(before[2048], faded[2048]);
    EXPECT_EQ(before[2049], faded[2049]);
    EXPECT_EQ(filtered(faded), afterFirstStage(before));
}

TEST(WpMicPostProc, rampEndsJustUnderHalfGain) {
    // A single loud sample passes the filter 16 samples later, less a 32nd of itself.
    for (const auto& [at, faded] :
         {std::pair(2047U, 16000 * 2047 >> 12), std::pair(2048U, 16000)}) {
        Samples samples(10000);
        samples[at] = 16000;
        EXPECT_EQ(faded - (faded >> 5), afterFirstStage(samples)[at + 16]) << at;
        Samples mirrored(10000);
        mirrored[10000 - at] = 16000;
        EXPECT_EQ(faded - (faded >> 5), afterFirstStage(mirrored)[10000 - at + 16]) << at;
    }
}

TEST(WpMicPostProc, silenceStaysSilence) {
    WpMicPostProc proc;
    EXPECT_EQ(Samples(5000), audio::run(proc, Samples(5000)));
}

TEST(WpMicPostProc, minusOneMapsToMinusTheFirstEntryAndZeroToTheFirst) {
    // Level 0 fills 99.2 %: k = 0, so all noise segments are empty and entry 0 is 0. Samples within
    // the first level lie between 0 and entry 1, which is 30000 and a 512th of the way to 32767.
    WpMicPostProc proc;
    Samples samples(1000);
    samples[500] = 2;   // -1 in its surroundings: the mean of 2 in 32 samples rounds down to 0
    samples[510] = -1;  // makes the window's mean -1 or 0
    const Samples shaped = filtered(samples);
    const Samples result = audio::run(proc, samples);
    for (size_t i = 0; i < 1000; i++) {
        if (shaped[i] == 0 || shaped[i] == -1) {
            EXPECT_EQ(0, result[i]) << i;
        }
    }
    EXPECT_NE(shaped.end(), std::find(shaped.begin(), shaped.end(), -1));
    const auto two = std::find(shaped.begin(), shaped.end(), 2);
    ASSERT_NE(shaped.end(), two);
    EXPECT_EQ((2 * 30005) >> 6, result[static_cast<size_t>(two - shaped.begin())]);
}

TEST(WpMicPostProc, theCurveOfALevelOf100IsTheOneWorkedOutByHand) {
    // The sample, and what becomes of it. With k = 100 and m = 2 the entries of the curve are
    // 0: 0, 1: 250, 2: 500, 3: 500 + 29500 / 98 = 801.02, 51: half way from 500 to 30000 = 15250,
    // 100: 30000, 101: 30000 + 2767 / 412 = 30006.7, 306: half way from there to 32767 = 31383.5,
    // 511: 32767 - 2767 / 412 = 32760.3, 512: 32767.
    constexpr std::pair<int32_t, int32_t> kMapped[] = {
        {0, 0},
        {64, 250},
        {64 * 2, 500},
        {64 * 2 + 32, 650},  // (500 + 801) / 2
        {64 * 3, 801},
        {64 * 51, 15250},
        {64 * 100, 30000},
        {64 * 101, 30006},
        {64 * 306, 31383},
        {32767, 32766},  // (63 * 32767 + 32760) / 64 = 32766.9
        {-1, 0},         // negative samples are mirrored: -1 is level 0 too
        {-65, -250},
        {-64 * 2 - 1, -500},
        {-64 * 51 - 1, -15250},
        {-64 * 100 - 1, -30000},
        {-32768, -32766},
    };
    // 100 blocks of 32 samples: what the filter makes of a block's single sample A is A - (A >> 5)
    // in its middle and -(A >> 5), a small sample, around that. Five of 3200 samples lie above the
    // level of 100 and nearly a hundred in it: the 26 loudest, 0.8 %, end there.
    Samples samples(3200);
    for (size_t block = 0; block < 100; block++) {
        const int32_t wanted = block < std::size(kMapped) ? kMapped[block].first : 64 * 100;
        const int32_t before = wanted + (wanted >= 0 ? wanted / 31 : (wanted - 30) / 31);
        samples[32 * block] = before;
        if (block < std::size(kMapped)) {
            ASSERT_EQ(wanted, std::clamp(before - (before >> 5), -32768, 32767));
        }
    }
    WpMicPostProc proc;
    const Samples result = audio::run(proc, samples);
    for (size_t block = 0; block < std::size(kMapped); block++) {
        EXPECT_EQ(kMapped[block].second, result[32 * block + 16]) << kMapped[block].first;
    }
}

TEST(WpMicPostProc, soundOfNoSamplesGivesNone) {
    WpMicPostProc proc;
    EXPECT_EQ(Samples(), audio::run(proc, Samples()));
}

TEST(WpMicPostProc, speechIsRaisedToNearlyFullScaleAndNeverBeyond) {
    WpMicPostProc proc;
    Samples quiet = audio::speechOf(5);
    for (int32_t& sample : quiet) {
        sample /= 8;
    }
    const Samples result = audio::run(proc, quiet);
    const auto [low, high] = std::minmax_element(result.begin(), result.end());
    EXPECT_GT(*high, 30000);
    EXPECT_LE(*high, 32767);
    EXPECT_GE(*low, -32767);
}
