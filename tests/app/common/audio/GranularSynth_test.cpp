// SPDX-License-Identifier: MIT
// Grains are placed, moved, stretched and pasted by the rules, and nothing outside the arrays is
// used.
#include "AudioSupport.h"
#include "GranularSynth.h"
#include "SlowEffects.h"

#include <gtest/gtest.h>

#include <cmath>

using audio::Array;
using audio::Samples;

namespace {

Array<int32_t> silence(int32_t count) {
    return Array<int32_t>(newArray<int32_t>(count));
}

void pasteAll(GranularSynth& synth, int32_t* dst) {
    for (int32_t g = 0; g < synth.getNumGrains(); g++) {
        synth.pasteGrain(g, dst);
    }
}

}  // namespace

TEST(GranularSynth, grainsStandAtTheirStepsAtFirst) {
    GranularSynth synth(silence(1099).get(), 200, 100, 50);
    EXPECT_EQ(5, synth.getNumGrains());
    EXPECT_EQ(200, synth.getSrcStepSize());
    for (int32_t g = 0; g < 5; g++) {
        EXPECT_EQ(200 * g, synth.getDstPos(g, false));
        EXPECT_EQ(200 * g * 1024, synth.getDstPos(g, true));
    }
    EXPECT_EQ(50 + 100 + 800, synth.getDstLength());
}

TEST(GranularSynth, sourceShorterThanAGrainHasNoGrains) {
    for (const int32_t count : {0, 1, 199}) {
        GranularSynth synth(silence(count).get(), 200, 100, 100);
        EXPECT_EQ(0, synth.getNumGrains());
        EXPECT_EQ(200, synth.getDstLength());
        const Array<int32_t> dst = audio::toArray(Samples(200, 5));
        synth.pasteGrain(0, dst.get());
        EXPECT_EQ(Samples(200, 5), audio::toVector(dst.get()));
    }
}

TEST(GranularSynth, addDstPosMovesARangeInSamplesOrQ10) {
    GranularSynth synth(silence(1000).get(), 200, 100, 100);
    synth.addDstPos(1, 2, 5, false);
    synth.addDstPos(2, 3, 7, true);
    EXPECT_EQ(0, synth.getDstPos(0, true));
    EXPECT_EQ((200 + 5) * 1024, synth.getDstPos(1, true));
    EXPECT_EQ((400 + 5) * 1024 + 7, synth.getDstPos(2, true));
    EXPECT_EQ(600 * 1024 + 7, synth.getDstPos(3, true));
    EXPECT_EQ(600, synth.getDstPos(3, false));
    EXPECT_EQ(800 * 1024, synth.getDstPos(4, true));
}

TEST(GranularSynth, scaledPositionsAreRounded) {
    GranularSynth synth(silence(1000).get(), 1, 100, 100);
    synth.scaleDstPos(0.3335F);
    EXPECT_EQ(static_cast<int32_t>(std::lround(3 * 1024 * static_cast<double>(0.3335F))),
              synth.getDstPos(3, true));
    EXPECT_EQ(1, synth.getDstPos(3, false));
}

TEST(GranularSynth, firstGrainFadesInFromSilenceAtOffsetZero) {
    const Samples source(1000, 1000);
    GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    for (int32_t i = 0; i <= 100; i++) {
        EXPECT_EQ((327 * 1000 * i) >> 15, dst[i]) << i;
    }
    for (int32_t i = 101; i < 300; i++) {
        EXPECT_EQ(1000, dst[i]) << i;
    }
    EXPECT_EQ(0, dst[300]);
}

TEST(GranularSynth, lastGrainAndGrainsOutsidePasteNothing) {
    GranularSynth synth(audio::toArray(Samples(1000, 1000)).get(), 200, 100, 100);
    const Array<int32_t> dst = silence(synth.getDstLength());
    for (const int32_t grain : {4, 5, -1, 1000}) {
        synth.pasteGrain(grain, dst.get());
    }
    EXPECT_EQ(Samples(static_cast<size_t>(length(dst.get()))), audio::toVector(dst.get()));
}

TEST(GranularSynth, highPitchedGrainReads719SamplesForIts400) {
    const Samples source = audio::roughSignal(2000);
    GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
    synth.setStretch(0, 1843);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    const Samples grain = audio::slow::stretched(source, 0, 718, 400);
    for (size_t i = 101; i < 300; i++) {
        EXPECT_EQ(grain[i], dst[static_cast<int64_t>(i)]) << i;
    }
}

TEST(GranularSynth, readPastTheEndIsShortenedToEndOneSampleBefore) {
    // The read of 400 samples would end exactly with the source. The interpolation needs one sample
    // more, so 399 are spread over 400.
    const Samples source = audio::roughSignal(400);
    GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    const Samples grain = audio::slow::stretched(source, 0, 398, 400);
    for (size_t i = 101; i < 300; i++) {
        EXPECT_EQ(grain[i], dst[static_cast<int64_t>(i)]) << i;
    }
}

TEST(GranularSynth, readThatEndsOneSampleBeforeIsNotShortened) {
    const Samples source = audio::roughSignal(401);
    GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    for (size_t i = 101; i < 300; i++) {
        EXPECT_EQ(source[i], dst[static_cast<int64_t>(i)]) << i;
    }
}

TEST(GranularSynth, searchReadsWhatAnEarlierGrainLeft) {
    // Grain 1 is cut by the end of an output that is too short for it: 160 samples are made, but
    // the search at an offset of 101 or more reads further. It reads what grain 0 left there.
    const Samples source = audio::roughSignal(1600);
    GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
    Samples out(260);
    const Array<int32_t> dst = audio::toArray(out);
    synth.pasteGrain(0, dst.get());
    synth.pasteGrain(1, dst.get());
    Samples temp(source.begin(), source.begin() + 360);  // 260 + 100 - 0
    audio::slow::crossFade(temp, 0, out, 0, 100, 260);
    // Of the second grain 260 + 100 - 200 = 160 samples are made, of 400 source samples.
    const Samples second = audio::slow::stretched(source, 200, 599, 160);
    std::copy(second.begin(), second.end(), temp.begin());
    const int32_t offset = GrainSearch::bestOffsetInFull(temp.data(), &out[200], 100, 60);
    for (size_t i = 0; i < 60; i++) {
        const auto k = static_cast<int32_t>(i);
        int32_t& sample = out[200 + i];
        sample = (327 * (temp[static_cast<size_t>(offset) + i] * k + sample * (100 - k))) >> 15;
    }
    EXPECT_EQ(out, audio::toVector(dst.get()));
}

TEST(GranularSynth, grainBeyondTheBufferIsCutToFit) {
    const Samples source = audio::noise(20000, 30000);
    GranularSynth synth(audio::toArray(source).get(), 5000, 100, 100);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    for (int32_t i = 101; i < 4000; i++) {
        ASSERT_EQ(source[static_cast<size_t>(i)], dst[i]) << i;
    }
    for (int32_t i = 4000; i < length(dst.get()); i++) {
        ASSERT_EQ(0, dst[i]) << i;
    }
}

TEST(GranularSynth, stretchedGrainBeyondTheBufferIsCutToFit) {
    const Samples source = audio::noise(40000, 30000);
    GranularSynth synth(audio::toArray(source).get(), 5000, 100, 100);
    synth.setStretch(0, 2048);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    const Samples grain = audio::slow::stretched(source, 0, 10399, 5200);
    for (int32_t i = 101; i < 4000; i++) {
        ASSERT_EQ(grain[static_cast<size_t>(i)], dst[i]) << i;
    }
    EXPECT_EQ(0, dst[4000]);
}

TEST(GranularSynth, grainsMovedAnywhereStayInsideTheirArrays) {
    const Samples source = audio::roughSignal(3000);
    for (const int32_t delta : {-100000, -450, -250, -1, 1, 250, 1000, 100000}) {
        for (const int32_t stretchQ10 : {1, 300, 1024, 1843, 100000}) {
            GranularSynth synth(audio::toArray(source).get(), 200, 100, 100);
            const Array<int32_t> dst = silence(synth.getDstLength());
            synth.addDstPos(3, 9, delta, false);
            for (int32_t g = 0; g < synth.getNumGrains(); g++) {
                synth.setStretch(g, stretchQ10);
            }
            pasteAll(synth, dst.get());  // the sanitizer notices an access outside the arrays
            const auto [low, high] = std::minmax_element(dst.get(), dst.get() + length(dst.get()));
            EXPECT_GE(*low, -32768);
            EXPECT_LE(*high, 32767);
        }
    }
}

TEST(GranularSynth, analysisHasNothingToDo) {
    GranularSynth synth(audio::toArray(Samples(1000, 1000)).get(), 200, 100, 100);
    synth.analyseMamp(0, 4);
    synth.analyseCorr(0, 4);
    synth.findAmpPeaks(100);
    EXPECT_EQ(1000, synth.getDstLength());
    EXPECT_EQ(200, synth.getDstPos(1, false));
}

TEST(GranularSynth, ownsACopyOfTheSource) {
    const Array<int32_t> source = audio::toArray(Samples(1000, 1000));
    GranularSynth synth(source.get(), 200, 100, 100);
    std::fill_n(source.get(), 1000, 5);
    const Array<int32_t> dst = silence(synth.getDstLength());
    synth.pasteGrain(0, dst.get());
    EXPECT_EQ(1000, dst[200]);
}
