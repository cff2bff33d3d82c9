// SPDX-License-Identifier: MIT
// Linear prediction equals the plain sums and recursions: correlations, filter, pitch and pulses.
#include "AudioSupport.h"
#include "Lpc.h"
#include "SlowEffects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <numeric>

using audio::Samples;

namespace {

class LpcTest : public testing::Test {
protected:
    void SetUp() override { Lpc::static_ctor(); }

    void TearDown() override { Lpc::static_dtor(); }
};

/// Frames of speech, noise, silence and full scale, one after the other.
Samples frames() {
    Samples samples = audio::speechOf(10);
    const Samples rough = audio::roughSignal(8000);
    samples.insert(samples.end(), rough.begin(), rough.end());
    samples.insert(samples.end(), 320, 0);
    samples.insert(samples.end(), 160, -32768);
    return samples;
}

/// A frame with a peak at every period samples.
Samples pulses(int32_t period, int32_t height) {
    Samples frame(160);
    for (size_t i = 0; i < 160; i += static_cast<size_t>(period)) {
        frame[i] = height;
    }
    return frame;
}

void expectSameBits(const float* expected, const float* found, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        if (std::isnan(expected[i])) {
            EXPECT_TRUE(std::isnan(found[i])) << i;
        } else {
            EXPECT_EQ(std::bit_cast<uint32_t>(expected[i]), std::bit_cast<uint32_t>(found[i]))
                << i << ": " << expected[i] << " and " << found[i];
        }
    }
}

}  // namespace

TEST_F(LpcTest, initForgetsTheVoiceBefore) {
    Samples frame = audio::noise(160, 30000);
    float a[11] = {1.0F, -0.5F};
    Lpc::decode(frame.data(), a);
    Lpc::excitation(90, 0);
    Lpc::LAST_PERIOD = 20;
    Lpc::init();
    EXPECT_EQ(58, Lpc::LAST_PERIOD);
    EXPECT_EQ(0, Lpc::DEL_OFS);
    EXPECT_EQ(0, Lpc::excOfs);
    for (const float value : Lpc::DEL_BUF) {
        EXPECT_EQ(0.0F, value);
    }
}

TEST_F(LpcTest, lagCorrelationsAreThePlainSums) {
    const Samples samples = frames();
    for (size_t at = 0; at + 160 <= samples.size(); at += 160) {
        Lpc::computePeriod(&samples[at]);
        ASSERT_EQ(audio::slow::lagCorrelations(&samples[at]),
                  Samples(Lpc::P_CORR, Lpc::P_CORR + 85))
            << "at " << at;
    }
}

TEST_F(LpcTest, autoCorrelationIsThePlainSums) {
    const Samples samples = frames();
    for (size_t at = 0; at + 160 <= samples.size(); at += 160) {
        float r[11];
        Lpc::computeAutoCorrelation(&samples[at], r);
        expectSameBits(audio::slow::autoCorrelation(&samples[at]).data(), r, 11);
    }
}

TEST_F(LpcTest, samplesBeyondSixteenBitsAreCorrelatedToo) {
    const Samples frame = audio::noise(160, 100000);
    Lpc::computePeriod(frame.data());
    EXPECT_EQ(audio::slow::lagCorrelations(frame.data()), Samples(Lpc::P_CORR, Lpc::P_CORR + 85));
    float r[11];
    Lpc::computeAutoCorrelation(frame.data(), r);
    expectSameBits(audio::slow::autoCorrelation(frame.data()).data(), r, 11);
}

TEST_F(LpcTest, autoCorrelationOfAStepByHand) {
    Samples frame(160);
    std::fill(frame.begin() + 80, frame.end(), 256 * 4);
    float r[11];
    Lpc::computeAutoCorrelation(frame.data(), r);
    EXPECT_EQ(16.0F / 16384.0F, r[0]);  // one difference of 4
    EXPECT_EQ(0.0F, r[1]);
}

TEST_F(LpcTest, firstSampleHasNoDifference) {
    const Samples frame(160, 25600);
    float r[11];
    Lpc::computeAutoCorrelation(frame.data(), r);
    EXPECT_EQ(0.0F, r[0]);
}

TEST_F(LpcTest, filterIsThePlainRecursion) {
    const Samples samples = frames();
    for (size_t at = 0; at + 160 <= samples.size(); at += 160) {
        const std::vector<float> r = audio::slow::autoCorrelation(&samples[at]);
        float expectedGain = 0.0F;
        const std::vector<float> expected = audio::slow::filter(r, expectedGain);
        float a[11];
        float tmp[11];
        const float gain = Lpc::computeFilterCoeffs(r.data(), a, tmp);
        expectSameBits(expected.data(), a, 11);
        expectSameBits(&expectedGain, &gain, 1);
    }
}

TEST_F(LpcTest, filtersOfEightFramesAreThoseOfEach) {
    Samples samples = frames();
    const Samples wide = audio::noise(4000, 1 << 28);  // sums wrap: no sound has such ones
    samples.insert(samples.end(), wide.begin(), wide.end());
    int32_t withoutGain = 0;
    for (size_t at = 0; at + 8 * size_t{160} <= samples.size(); at += 8 * size_t{160}) {
        float r[11][8];
        float a[11][8];
        float gains[8];
        for (size_t f = 0; f < 8; f++) {
            const std::vector<float> one = audio::slow::autoCorrelation(&samples[at + 160 * f]);
            for (size_t lag = 0; lag < 11; lag++) {
                r[lag][f] = one[lag];
            }
        }
        Lpc::computeFilters(r, a, gains);
        for (size_t f = 0; f < 8; f++) {
            std::vector<float> one(11);
            std::vector<float> found(11);
            for (size_t k = 0; k < 11; k++) {
                one[k] = r[k][f];
                found[k] = a[k][f];
            }
            float gain = 0.0F;
            expectSameBits(audio::slow::filter(one, gain).data(), found.data(), 11);
            expectSameBits(&gain, &gains[f], 1);
            withoutGain += std::isnan(gain) ? 1 : 0;
        }
    }
    EXPECT_GT(withoutGain, 0);
}

TEST_F(LpcTest, filterOfADecayingCorrelationIsItsOneTap) {
    float r[11];
    for (int32_t k = 0; k <= 10; k++) {
        r[k] = std::ldexp(1.0F, -k);  // halves at each lag: one tap of -0.5 predicts it all
    }
    float a[11];
    float tmp[11];
    const float gain = Lpc::computeFilterCoeffs(r, a, tmp);
    EXPECT_EQ(1.0F, a[0]);
    EXPECT_EQ(-0.5F, a[1]);
    for (int32_t t = 2; t <= 10; t++) {
        EXPECT_EQ(0.0F, a[t]) << t;
    }
    EXPECT_EQ(std::sqrt(0.75F) * 0.33F, gain);
}

TEST_F(LpcTest, filterOfSilenceIsNoFilterAndNoGain) {
    const float r[11] = {};
    float a[11];
    float tmp[11];
    EXPECT_EQ(0.0F, Lpc::computeFilterCoeffs(r, a, tmp));
    EXPECT_EQ(1.0F, a[0]);
    for (int32_t t = 1; t <= 10; t++) {
        EXPECT_EQ(0.0F, a[t]) << t;
    }
}

TEST_F(LpcTest, periodOfPulsesIsTheirDistance) {
    for (const int32_t period : {37, 58, 80}) {
        EXPECT_EQ(period, Lpc::computePeriod(pulses(period, 32000).data()));
        EXPECT_GE(Lpc::LAST_VOICENESS, 100);
    }
}

TEST_F(LpcTest, shortPeriodsAreHeardAnOctaveLow) {
    // The window of lag 20 has 100 samples and five pairs of pulses, that of lag 40 has 120 and
    // six.
    EXPECT_EQ(40, Lpc::computePeriod(pulses(20, 32000).data()));
    EXPECT_EQ(6 * 500 * 500, Lpc::P_CORR[40 - 16]);
    EXPECT_EQ(5 * 500 * 500, Lpc::P_CORR[20 - 16]);
}

TEST_F(LpcTest, loudPulsesAreFullyVoiced) {
    Lpc::computePeriod(pulses(20, 32767).data());
    EXPECT_EQ(1024, Lpc::LAST_VOICENESS);
}

TEST_F(LpcTest, faintOrNoPeriodKeepsTheLastOne) {
    Lpc::LAST_PERIOD = 33;
    Lpc::LAST_VOICENESS = 7;
    EXPECT_EQ(33, Lpc::computePeriod(Samples(160).data()));
    EXPECT_EQ(0, Lpc::LAST_VOICENESS);
    Lpc::LAST_VOICENESS = 7;
    EXPECT_EQ(33, Lpc::computePeriod(pulses(50, 64 * 100).data()));  // peaks of 20000: 19 in all
    EXPECT_EQ(0, Lpc::LAST_VOICENESS);
}

TEST_F(LpcTest, firstOfEquallyGoodLagsWins) {
    // Lags 20 and 40 meet the same peaks; only peaks that both see, so that the sums are equal.
    Samples frame(160);
    frame[0] = frame[20] = frame[40] = 64 * 400;
    Lpc::computePeriod(frame.data());
    ASSERT_EQ(2 * Lpc::P_CORR[24], Lpc::P_CORR[4]);  // 20 sees two pairs, 40 one
    frame[20] = 0;
    frame[30] = 64 * 400;  // now 30, 40 and 10 (too short to be looked at) see one pair each
    EXPECT_EQ(30, Lpc::computePeriod(frame.data()));
    EXPECT_EQ(Lpc::P_CORR[14], Lpc::P_CORR[24]);
}

TEST_F(LpcTest, faintFramesHaveNoPitch) {
    int32_t faint = 0;
    for (uint32_t seed = 0; seed < 3000; seed++) {
        const Samples frame = audio::noise(160, int32_t{100} << seed % 11, seed);
        if (Lpc::isFaint(frame.data())) {
            EXPECT_EQ(0, audio::slow::pitchOf(frame.data(), 58).voicing) << seed;
            faint++;
        }
    }
    EXPECT_GT(faint, 100);
    EXPECT_LT(faint, 2900);
}

TEST_F(LpcTest, aThirdOfTheLeastPeakIsTheLimitOfFaintFrames) {
    Samples frame(160);  // the least peak is 100 << 10; three times 34133 is one less
    const int32_t roots[] = {184, 16, 4, 2, 1};
    std::transform(std::begin(roots), std::end(roots), frame.begin() + 70,
                   [](int32_t root) { return 64 * root; });
    EXPECT_TRUE(Lpc::isFaint(frame.data()));
    frame[0] = -64;
    EXPECT_FALSE(Lpc::isFaint(frame.data()));
    frame[0] = 1 << 22;  // its lower 16 bits are 0 after the shift
    EXPECT_FALSE(Lpc::isFaint(frame.data()));
}

TEST_F(LpcTest, periodIsTheFirstOfTheHighestPeaks) {
    for (uint32_t seed = 0; seed < 3000; seed++) {
        // From faint to beyond 16 bits. Few different samples make equal peaks.
        const int32_t loudness = int32_t{100} << seed % 11;
        Samples frame = audio::noise(160, loudness, seed);
        for (int32_t& sample : frame) {
            sample = seed % 3 == 0 ? sample / loudness * loudness : sample;
        }
        Lpc::LAST_PERIOD = 58;
        const int32_t period = Lpc::computePeriod(frame.data());
        const audio::slow::Pitch expected = audio::slow::pitchOf(frame.data(), 58);
        ASSERT_EQ(expected.period, period) << seed;
        ASSERT_EQ(expected.voicing, Lpc::LAST_VOICENESS) << seed;
    }
}

TEST_F(LpcTest, equalNeighboursAreNoPeak) {
    Samples frame(160);
    frame[0] = frame[40] = frame[41] = 64 * 400;  // lags 40 and 41 see one pair each
    EXPECT_EQ(58, Lpc::computePeriod(frame.data()));
    EXPECT_EQ(0, Lpc::LAST_VOICENESS);
    frame[41] = 64 * 399;
    EXPECT_EQ(40, Lpc::computePeriod(frame.data()));
    frame[41] = 64 * 401;
    EXPECT_EQ(41, Lpc::computePeriod(frame.data()));
}

TEST_F(LpcTest, lagsAtTheEdgesAreNeverThePeriod) {
    EXPECT_EQ(58, Lpc::computePeriod(pulses(100, 20000).data()));  // lag 84 has no neighbour
    EXPECT_EQ(0, Lpc::LAST_VOICENESS);
    EXPECT_NE(16, Lpc::computePeriod(pulses(16, 20000).data()));
}

TEST_F(LpcTest, encodeTellsGainFilterAndPeriod) {
    const Samples frame = pulses(37, 20000);
    float a[11];
    const float gain = Lpc::encode(frame.data(), a);
    float expectedGain = 0.0F;
    const std::vector<float> expected =
        audio::slow::filter(audio::slow::autoCorrelation(frame.data()), expectedGain);
    expectSameBits(expected.data(), a, 11);
    EXPECT_EQ(expectedGain, gain);
    EXPECT_EQ(37, Lpc::LAST_PERIOD);
}

TEST_F(LpcTest, excitationIsARampThenSilenceUpToThePeriod) {
    for (int32_t round = 0; round < 3; round++) {
        for (int32_t i = 0; i < 90; i++) {
            const int32_t expected = i < 32 ? -30720 + 2048 * i : 0;
            ASSERT_EQ(expected, Lpc::excitation(90, 0)) << i;
        }
    }
    EXPECT_EQ(90, Lpc::excOfs);
}

TEST_F(LpcTest, excitationOfAShortPeriodStartsTheRampAgain) {
    for (int32_t i = 0; i < 20; i++) {
        Lpc::excitation(1000, 0);
    }
    EXPECT_EQ(-30720, Lpc::excitation(20, 0));
    EXPECT_EQ(-28672, Lpc::excitation(20, 0));
}

TEST_F(LpcTest, decodeIsThePlainFilterAndRunsOnAcrossFrames) {
    const Samples samples = frames();
    float ring[10] = {};
    int32_t offset = 0;
    for (size_t at = 0; at + 160 <= samples.size(); at += 160) {
        float gain = 0.0F;
        const std::vector<float> a =
            audio::slow::filter(audio::slow::autoCorrelation(&samples[at]), gain);
        Samples expected = audio::noise(160, 3000, static_cast<uint32_t>(at));
        Samples found = expected;
        audio::slow::decode(expected.data(), a.data(), ring, offset);
        Lpc::decode(found.data(), a.data());
        ASSERT_EQ(expected, found) << "at " << at;
        expectSameBits(ring, Lpc::DEL_BUF, 10);
        ASSERT_EQ(offset, Lpc::DEL_OFS);
    }
}

TEST_F(LpcTest, decodeStartsAnywhereInItsRing) {
    const float a[11] = {1.0F, -0.3F, 0.2F, 0.1F, -0.1F, 0.05F, 0.04F, -0.03F, 0.02F, 0.01F, 0.3F};
    for (int32_t start = 0; start < 10; start++) {
        float ring[10];
        for (int32_t i = 0; i < 10; i++) {
            ring[i] = Lpc::DEL_BUF[i] = 0.01F * static_cast<float>(i * i);
        }
        int32_t offset = start;
        Lpc::DEL_OFS = start;
        Samples expected = audio::noise(160, 3000);
        Samples found = expected;
        audio::slow::decode(expected.data(), a, ring, offset);
        Lpc::decode(found.data(), a);
        EXPECT_EQ(expected, found) << start;
        expectSameBits(ring, Lpc::DEL_BUF, 10);
    }
}

TEST_F(LpcTest, decodeDoesOtherWorkForEachSampleInOrder) {
    const float a[11] = {1.0F, -0.3F, 0.2F, 0.1F, -0.1F, 0.05F, 0.04F, -0.03F, 0.02F, 0.01F, 0.3F};
    Samples expected = audio::noise(160, 3000);
    Samples found = expected;
    float ring[10] = {};
    int32_t offset = 0;
    audio::slow::decode(expected.data(), a, ring, offset);
    Samples done;
    Lpc::decode(found.data(), a, [&done](int32_t i) { done.push_back(i); });
    EXPECT_EQ(expected, found);
    Samples each(160);
    std::iota(each.begin(), each.end(), 0);
    EXPECT_EQ(each, done);
}

TEST_F(LpcTest, decodeOfARunawayFilterSaturatesThenFallsSilent) {
    const float a[11] = {1.0F, -40.0F};  // each output 40 times the one before
    Samples frame(160);
    frame[0] = 32767;
    Lpc::decode(frame.data(), a);
    EXPECT_EQ(32766, frame[0]);
    EXPECT_EQ(std::numeric_limits<int32_t>::max(), frame[20]);
    // Beyond the largest float the other taps multiply infinity by 0: not a number, which is 0.
    EXPECT_EQ(0, frame[159]);
    std::fill(frame.begin(), frame.end(), 1000);
    Lpc::decode(frame.data(), a);
    EXPECT_EQ(Samples(160), frame);
}
