// SPDX-License-Identifier: MIT
#include "LevelMeter.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int32_t kRateHz = 16000;
constexpr int32_t kBlockSamples = kRateHz / 100;
constexpr int32_t kFullScale = 32767;

// Slower than a syllable ends, so that the peak can be read.
constexpr int32_t kFallDbPerSecond = 20;
constexpr int32_t kFallPerBlock256 = kFallDbPerSecond * 256 * kBlockSamples / kRateHz;

constexpr int32_t kLevels = -LevelMeter::kFloorDb + 1;

/// The lowest amplitude that counts as each level: 0 dB, -1 dB and so on.
constexpr std::array<int32_t, kLevels> makeAmplitudes() {
    constexpr double kOneDbDown = 0.89125093813374556;  // 10^(-1/20)
    std::array<int32_t, kLevels> amplitudes{};
    double amplitude = kFullScale;
    for (int32_t& lowest : amplitudes) {
        lowest = static_cast<int32_t>(amplitude);
        lowest += lowest < amplitude ? 1 : 0;
        amplitude *= kOneDbDown;
    }
    return amplitudes;
}

constexpr std::array<int32_t, kLevels> kAmplitudes = makeAmplitudes();

}  // namespace

void LevelMeter::begin() {
    *this = LevelMeter();
}

void LevelMeter::add(const int16_t* samples, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        const int32_t amplitude = std::abs(int32_t{samples[i]});
        blockPeak = std::max(blockPeak, amplitude);
        blockSquares += int64_t{amplitude} * amplitude;
        clippedSamples = amplitude >= kFullScale ? kRateHz : std::max(clippedSamples - 1, 0);
        blockSamples++;
        if (blockSamples == kBlockSamples) {
            endBlock();
        }
    }
    heard += count;
}

void LevelMeter::endBlock() {
    loudest = std::max(loudest, blockPeak);
    peakDb256 = std::max({toDb(blockPeak) * 256, peakDb256 - kFallPerBlock256, kFloorDb * 256});
    squares[static_cast<size_t>(blocks % kMeanBlocks)] = blockSquares;
    blocks++;
    blockSamples = 0;
    blockPeak = 0;
    blockSquares = 0;
}

LevelMeter::Reading LevelMeter::read() const {
    Reading reading;
    reading.peakDb = peakDb256 >> 8;
    reading.meanDb = meanDb();
    reading.loudestDb = toDb(loudest);
    reading.isClipped = clippedSamples > 0;
    reading.heardSamples = heard;
    return reading;
}

int32_t LevelMeter::meanDb() const {
    const int64_t counted = int64_t{std::min(blocks, kMeanBlocks)} * kBlockSamples;
    int64_t sum = 0;  // at most 1600 * 2^30
    for (const int64_t square : squares) {
        sum += square;
    }
    int32_t db = 0;
    while (db > kFloorDb) {
        const int64_t lowest = kAmplitudes[static_cast<size_t>(-db)];
        if (sum >= lowest * lowest * counted && counted > 0) {
            break;
        }
        db--;
    }
    return db;
}

int32_t LevelMeter::toDb(int32_t amplitude) {
    const auto* found = std::find_if(kAmplitudes.begin(), kAmplitudes.end(),
                                     [amplitude](int32_t lowest) { return amplitude >= lowest; });
    return found == kAmplitudes.end() ? kFloorDb
                                      : -static_cast<int32_t>(found - kAmplitudes.begin());
}
