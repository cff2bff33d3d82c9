// SPDX-License-Identifier: MIT
// Sounds of any rate become 16 kHz without a wrong level, time or frequency.
#include "RateTo16k.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kOutHz = 16000.0;
constexpr double kAmplitude = 0.9;  // of full scale

using Samples = std::vector<int16_t>;

std::vector<float> sine(double frequencyHz, int32_t rateHz, size_t n) {
    std::vector<float> samples(n);
    for (size_t i = 0; i < n; i++) {
        samples[i] = static_cast<float>(
            kAmplitude * std::sin(2 * kPi * frequencyHz * static_cast<double>(i) / rateHz));
    }
    return samples;
}

std::vector<float> noise(size_t n) {
    std::mt19937 random(1);
    std::vector<float> samples(n);
    for (float& sample : samples) {
        sample = static_cast<float>(random() % 65536) / 32768.0F - 1.0F;
    }
    return samples;
}

Samples converted(const std::vector<float>& in, int32_t rateHz, int32_t block = 128) {
    RateTo16k rate(rateHz);
    std::deque<int16_t> out;
    const auto n = static_cast<int32_t>(in.size());
    for (int32_t i = 0; i < n; i += block) {
        rate.convert(in.data() + i, std::min(block, n - i), out);
    }
    rate.finish(out);
    return {out.begin(), out.end()};
}

/// In decibels against the sine that goes in, without the first and the last 10 ms, where it begins
/// and ends with a step.
/// @param expected  false: what is left of the sine. True: how far from the same sine at 16 kHz,
/// from
///                  a wrong loudness, a wrong time, or sounds that were not there.
double level(const Samples& samples, double frequencyHz, bool expected) {
    double power = 0;
    size_t n = 0;
    for (size_t i = 160; i + 160 < samples.size(); i++, n++) {
        const double wanted =
            kAmplitude * 32768 * std::sin(2 * kPi * frequencyHz * static_cast<double>(i) / kOutHz);
        const double found = samples[i] - (expected ? wanted : 0.0);
        power += found * found;
    }
    const double full = kAmplitude * 32768;
    return 10 * std::log10((power / static_cast<double>(n) + 1e-9) / (full * full / 2));
}

/// The loudness of the input's sine in the output, relative to the input; 1: unchanged.
double loudness(const Samples& samples, double frequencyHz) {
    double found = 0;
    double wanted = 0;
    for (size_t i = 160; i + 160 < samples.size(); i++) {
        const double sample =
            kAmplitude * 32768 * std::sin(2 * kPi * frequencyHz * static_cast<double>(i) / kOutHz);
        found += samples[i] * sample;
        wanted += sample * sample;
    }
    return found / wanted;
}

double besselI0(double x) {
    double sum = 0;
    for (int32_t k = 40; k >= 0; k--) {
        sum += std::exp(2 * (k * std::log(x / 2 + 1e-300) - std::lgamma(k + 1.0)));
    }
    return sum;
}

/// The slow model: one output sample by the formula, over every input sample.
double slowly(const std::vector<float>& in, int32_t rateHz, size_t n) {
    const double lowerHz = std::min<double>(rateHz, kOutHz);
    double sum = 0;
    for (size_t i = 0; i < in.size(); i++) {
        const double x =
            (static_cast<double>(i) / rateHz - static_cast<double>(n) / kOutHz) * lowerHz;
        if (std::abs(x) < 24) {
            const double window = besselI0(9.4 * std::sqrt(1 - x * x / 576)) / besselI0(9.4);
            sum += in[i] * window * (x == 0 ? 1.0 : std::sin(kPi * x) / (kPi * x));
        }
    }
    return sum * lowerHz / rateHz;
}

class RateTo16kAtEachRate : public testing::TestWithParam<int32_t> {};

}  // namespace

TEST_P(RateTo16kAtEachRate, keepsSpeechAsItIsAndInTime) {
    const int32_t rateHz = GetParam();
    // 7 kHz; for rates below 16 kHz, the same fraction of the rate.
    const double highestHz = 7000.0 / 16000 * std::min(rateHz, 16000);
    for (const double part : {0.02, 0.1, 0.25, 0.5, 0.75, 0.9, 1.0}) {
        const double frequencyHz = part * highestHz;
        const Samples out =
            converted(sine(frequencyHz, rateHz, static_cast<size_t>(rateHz) / 4), rateHz);
        EXPECT_NEAR(0.0, 20 * std::log10(loudness(out, frequencyHz)), 0.001)
            << frequencyHz << " Hz";
        // Images and aliases too: nothing but this sine comes out, and not a sample too late.
        EXPECT_LT(level(out, frequencyHz, true), -85) << frequencyHz << " Hz";
    }
}

TEST_P(RateTo16kAtEachRate, letsNothingThroughThatOnlyTheInputCanHold) {
    const int32_t rateHz = GetParam();
    constexpr int32_t kSteps = 30;
    const double room = 0.499 * rateHz - 9000;  // below 0: the input cannot hold 9 kHz either
    for (int32_t step = 0; step <= kSteps && room > 0; step++) {
        const double frequencyHz = 9000 + room * step / kSteps;
        const Samples out =
            converted(sine(frequencyHz, rateHz, static_cast<size_t>(rateHz) / 4), rateHz);
        EXPECT_LT(level(out, frequencyHz, false), -85) << frequencyHz << " Hz";
    }
}

TEST_P(RateTo16kAtEachRate, makesTheSameOfBlocksOfAnySize) {
    const std::vector<float> in = noise(12345);
    const Samples whole = converted(in, GetParam(), 12345);
    for (const int32_t block : {1, 2, 3, 127, 128, 1023, 1024, 1025, 5000}) {
        EXPECT_EQ(whole, converted(in, GetParam(), block)) << "blocks of " << block;
    }
}

TEST_P(RateTo16kAtEachRate, isTheFormula) {
    const std::vector<float> in = noise(3000);
    const Samples out = converted(in, GetParam());
    for (size_t n = 0; n < out.size(); n += 1 + out.size() / 60) {
        const double expected = std::clamp(slowly(in, GetParam(), n) * 32768, -32768.0, 32767.0);
        EXPECT_NEAR(expected, out[n], 1.0) << "sample " << n;
    }
}

TEST_P(RateTo16kAtEachRate, makesAsManySamplesAsTheTimeHolds) {
    const int64_t rateHz = GetParam();
    for (const int64_t n : {0, 1, 2, 3, 11, 12, 13, 440, 441, 442, 5000}) {
        const Samples out = converted(noise(static_cast<size_t>(n)), GetParam());
        EXPECT_EQ((n * 16000 + rateHz - 1) / rateHz, static_cast<int64_t>(out.size())) << n;
    }
}

TEST_P(RateTo16kAtEachRate, holdsBackNoMoreThanItsFilterNeeds) {
    RateTo16k rate(GetParam());
    const std::vector<float> in = noise(20000);
    std::deque<int16_t> out;
    const double lowerHz = std::min<double>(GetParam(), kOutHz);
    for (size_t i = 0; i < in.size(); i += 100) {
        rate.convert(&in[i], 100, out);
        const double madeSeconds = static_cast<double>(out.size()) / kOutHz;
        const double inSeconds = static_cast<double>(i + 100) / GetParam();
        EXPECT_GT(madeSeconds, inSeconds - 25 / lowerHz);
    }
}

TEST_P(RateTo16kAtEachRate, beginsAgainAfterTheEnd) {
    RateTo16k rate(GetParam());
    const std::vector<float> in = noise(1000);
    std::deque<int16_t> first;
    std::deque<int16_t> second;
    rate.convert(in.data(), 1000, first);
    rate.finish(first);
    rate.convert(in.data(), 1000, second);
    rate.finish(second);
    EXPECT_EQ(first, second);
}

TEST_P(RateTo16kAtEachRate, survivesWhatIsNoSound) {
    const std::vector<float> in = {
        std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
        -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max(),
        std::numeric_limits<float>::denorm_min()};
    std::vector<float> tame = {0.0F, 16.0F, -16.0F, 16.0F, 0.0F};
    EXPECT_EQ(converted(tame, GetParam()), converted(in, GetParam()));
    // Long after it, nothing is left.
    std::vector<float> before = in;
    before.resize(20000, 0.0F);
    const Samples out = converted(before, GetParam());
    EXPECT_EQ(0, out.back());
}

TEST_P(RateTo16kAtEachRate, staysAtFullScaleInsteadOfWrapping) {
    std::vector<float> in(8000, 1.5F);
    in.resize(16000, -1.5F);
    const Samples out = converted(in, GetParam());
    EXPECT_EQ(32767, out[out.size() / 4]);
    EXPECT_EQ(-32768, out[out.size() * 3 / 4]);
}

INSTANTIATE_TEST_SUITE_P(Rates,
                         RateTo16kAtEachRate,
                         testing::Values(8000,
                                         11025,
                                         12000,
                                         16000,
                                         17000,
                                         22050,
                                         24000,
                                         32000,
                                         44100,
                                         44101,
                                         48000,
                                         88200,
                                         96000,
                                         191999,
                                         192000));

TEST(RateTo16k, leaves16kHzAsItIs) {
    std::vector<float> in;
    Samples expected;
    for (int32_t sample = -32768; sample <= 32767; sample++) {
        in.push_back(static_cast<float>(sample) / 32768.0F);
        expected.push_back(static_cast<int16_t>(sample));
    }
    EXPECT_EQ(expected, converted(in, 16000));
}

TEST(RateTo16k, roundsToTheNearestAndAHalfToTheEvenOne) {
    const std::vector<float> in = {0.5F,  1.5F,  2.5F,     -0.5F,    -1.5F,
                                   0.49F, 0.51F, 32767.5F, -32768.5F};
    std::vector<float> scaled;
    for (const float value : in) {
        scaled.push_back(value / 32768.0F);
    }
    EXPECT_EQ((Samples{0, 2, 2, 0, -2, 0, 1, 32767, -32768}), converted(scaled, 16000));
}

TEST(RateTo16k, putsAnImpulseWhereItWas) {
    for (const int32_t at : {0, 3, 300}) {
        std::vector<float> in(1000, 0.0F);
        in[static_cast<size_t>(at)] = 1.0F;
        const Samples out = converted(in, 48000);
        const size_t there = static_cast<size_t>(at) / 3;
        EXPECT_EQ(10923, out[there]);  // a third of full scale: three samples in for each one out
        for (size_t i = 0; i < out.size(); i++) {
            EXPECT_LE(std::abs(out[i]), i == there ? 10923 : 1)
                << i;  // zero at all other whole units
        }
    }
}
