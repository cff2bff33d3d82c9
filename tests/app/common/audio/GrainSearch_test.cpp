// SPDX-License-Identifier: MIT
// The fast search finds the same offset as the plain one, on noise, speech, ties and extremes.
#include "AudioSupport.h"
#include "GrainSearch.h"
#include "SlowEffects.h"

#include <gtest/gtest.h>

using audio::Samples;

namespace {

void expectSameWinner(const Samples& grain,
                      const Samples& target,
                      int32_t offsets,
                      int32_t window) {
    const int32_t expected = audio::slow::bestOffset(grain.data(), target.data(), offsets, window);
    GrainSearch search(offsets, window);
    EXPECT_EQ(expected, search.bestOffset(grain.data(), target.data()));
    EXPECT_EQ(expected,
              GrainSearch::bestOffsetInFull(grain.data(), target.data(), offsets, window));
}

}  // namespace

TEST(GrainSearch, sameWinnerOnNoiseOfEveryLoudness) {
    for (uint32_t seed = 0; seed < 60; seed++) {
        const int32_t amplitude = 1 << (seed % 16);
        const Samples grain = audio::noise(400, amplitude, seed);
        expectSameWinner(grain, audio::noise(200, amplitude, seed + 1000), 100, 100);
        expectSameWinner(grain, audio::noise(200, amplitude, seed + 1000), 100, 200);
    }
}

TEST(GrainSearch, sameWinnerAtEveryWindowAndOffsetCount) {
    const Samples grain = audio::roughSignal(900);
    const Samples target = audio::roughSignal(900, 3);
    for (const int32_t window : {1, 2, 31, 32, 33, 63, 64, 65, 100, 255, 256, 300}) {
        for (const int32_t offsets : {1, 2, 7, 100, 500}) {
            expectSameWinner(grain, target, offsets, window);
        }
    }
}

TEST(GrainSearch, sameWinnerWhereTheTargetIsAPieceOfTheGrain) {
    for (int32_t shift = 0; shift < 100; shift++) {
        const Samples grain = audio::noise(200, 20000, static_cast<uint32_t>(shift));
        const Samples target(grain.begin() + shift, grain.begin() + shift + 100);
        GrainSearch search(100, 100);
        EXPECT_EQ(shift, search.bestOffset(grain.data(), target.data()));
    }
}

TEST(GrainSearch, sameWinnerOnRealSpeech) {
    const Samples samples = audio::speechOf(20);
    GrainSearch search(100, 100);
    GrainSearch wide(100, 200);
    for (size_t at = 0; at + 700 < samples.size(); at += 150) {
        const int32_t* grain = &samples[at];
        const int32_t* target = &samples[at + 350];
        ASSERT_EQ(audio::slow::bestOffset(grain, target, 100, 100),
                  search.bestOffset(grain, target))
            << at;
        ASSERT_EQ(audio::slow::bestOffset(grain, target, 100, 200), wide.bestOffset(grain, target))
            << at;
    }
}

TEST(GrainSearch, firstOffsetWinsATie) {
    const Samples grain(200, 50);
    expectSameWinner(grain, Samples(100, 70), 100, 100);
    GrainSearch search(100, 100);
    EXPECT_EQ(0, search.bestOffset(grain.data(), Samples(100, 70).data()));
    Samples twice(200);
    twice[30] = twice[80] = 1000;  // fits equally well at 20 and at 70
    Samples target(100);
    target[10] = 1000;
    expectSameWinner(twice, target, 100, 100);
}

TEST(GrainSearch, extremeSamplesGiveTheSameWinner) {
    Samples grain(400, -32768);
    grain[250] = 32767;
    expectSameWinner(grain, Samples(200, 32767), 100, 200);
    expectSameWinner(Samples(400, 32767), Samples(200, -32768), 100, 200);
    expectSameWinner(audio::noise(400, 4000000, 5), audio::noise(200, 4000000, 6), 100, 200);
}

TEST(GrainSearch, nothingToTryIsOffsetZero) {
    const Samples samples(10);
    EXPECT_EQ(0, GrainSearch(0, 5).bestOffset(samples.data(), samples.data()));
    EXPECT_EQ(0, GrainSearch(5, 0).bestOffset(samples.data(), samples.data()));
}
