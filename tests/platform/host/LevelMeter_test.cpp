// SPDX-License-Identifier: MIT
// Peak, mean and clipping are measured in whole decibels.
#include "LevelMeter.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr int32_t kRateHz = 16000;

/// A square wave: its peak is its mean.
std::vector<int16_t> square(int16_t amplitude, int32_t count) {
    std::vector<int16_t> samples;
    for (int32_t i = 0; i < count; i++) {
        samples.push_back(i % 2 == 0 ? amplitude : static_cast<int16_t>(-amplitude));
    }
    return samples;
}

LevelMeter::Reading after(const std::vector<int16_t>& samples) {
    LevelMeter meter;
    meter.add(samples.data(), static_cast<int32_t>(samples.size()));
    return meter.read();
}

}  // namespace

TEST(LevelMeter, amplitudesAreToldInWholeDecibels) {
    EXPECT_EQ(0, LevelMeter::toDb(32768));
    EXPECT_EQ(0, LevelMeter::toDb(32767));
    EXPECT_EQ(-1, LevelMeter::toDb(32766));
    EXPECT_EQ(-6, LevelMeter::toDb(16423));  // 32767 * 10^(-6/20) is 16422.4
    EXPECT_EQ(-7, LevelMeter::toDb(16422));
    EXPECT_EQ(-20, LevelMeter::toDb(3277));
    EXPECT_EQ(-60, LevelMeter::toDb(33));
    EXPECT_EQ(-60, LevelMeter::toDb(0));
}

TEST(LevelMeter, aNewMeterReadsTheFloor) {
    const LevelMeter::Reading reading = LevelMeter().read();
    EXPECT_EQ(-60, reading.peakDb);
    EXPECT_EQ(-60, reading.meanDb);
    EXPECT_EQ(-60, reading.loudestDb);
    EXPECT_FALSE(reading.isClipped);
    EXPECT_FALSE(reading.hasHeard());
    EXPECT_EQ(0, reading.heardSamples);
}

TEST(LevelMeter, peakAndMeanOfASquareWaveAreEqual) {
    const LevelMeter::Reading reading = after(square(3277, kRateHz / 10));
    EXPECT_EQ(-20, reading.peakDb);
    EXPECT_EQ(-20, reading.meanDb);
    EXPECT_EQ(kRateHz / 10, reading.heardSamples);
}

TEST(LevelMeter, theMeanCountsTheLastTenthOfASecondOnly) {
    std::vector<int16_t> samples = square(3277, kRateHz);
    const std::vector<int16_t> quiet(kRateHz / 10, 0);
    samples.insert(samples.end(), quiet.begin(), quiet.end());
    EXPECT_EQ(-60, after(samples).meanDb);
}

TEST(LevelMeter, thePeakFallsTwentyDecibelsInASecond) {
    std::vector<int16_t> samples = square(32767, kRateHz / 10);
    samples.resize(samples.size() + kRateHz, 0);
    const int32_t peakDb = after(samples).peakDb;
    EXPECT_GE(peakDb, -21);
    EXPECT_LE(peakDb, -19);
    EXPECT_EQ(0, after(samples).loudestDb);
}

TEST(LevelMeter, theClippedMarkStaysForASecond) {
    std::vector<int16_t> samples(160, 0);
    samples[3] = -32768;
    EXPECT_TRUE(after(samples).isClipped);
    samples.resize(3 + kRateHz, 0);
    EXPECT_TRUE(after(samples).isClipped);
    samples.push_back(0);
    EXPECT_FALSE(after(samples).isClipped);
}

TEST(LevelMeter, aQuietTakeHasHeardNothing) {
    EXPECT_FALSE(after(square(103, kRateHz)).hasHeard());  // -50.05 dB
    EXPECT_EQ(-51, after(square(103, kRateHz)).loudestDb);
    EXPECT_TRUE(after(square(104, kRateHz)).hasHeard());  // -49.97 dB
}

TEST(LevelMeter, piecesOfAnySizeReadTheSame) {
    const std::vector<int16_t> samples = square(8000, 1000);
    LevelMeter meter;
    for (size_t i = 0; i < samples.size(); i += 7) {
        meter.add(&samples[i], static_cast<int32_t>(std::min<size_t>(7, samples.size() - i)));
    }
    EXPECT_EQ(after(samples).peakDb, meter.read().peakDb);
    EXPECT_EQ(after(samples).meanDb, meter.read().meanDb);
    EXPECT_EQ(1000, meter.read().heardSamples);
}

TEST(LevelMeter, aNewTakeForgetsTheOneBefore) {
    LevelMeter meter;
    const std::vector<int16_t> samples = square(32767, kRateHz);
    meter.add(samples.data(), kRateHz);
    meter.begin();
    EXPECT_EQ(-60, meter.read().loudestDb);
    EXPECT_EQ(0, meter.read().heardSamples);
    EXPECT_FALSE(meter.read().isClipped);
}
