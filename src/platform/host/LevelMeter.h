// SPDX-License-Identifier: MIT
// How loud the microphone is: peak and mean in decibels of full scale, in whole numbers that are
// the same on every machine.
//
// Not safe between threads: a device that hears on a thread of its own guards it.
#pragma once

#include <array>
#include <cstdint>

class LevelMeter {
public:
    static constexpr int32_t kFloorDb = -60;  // the lowest level that is told

    /// A take that never reaches this holds no speech.
    static constexpr int32_t kHeardDb = -50;

    struct Reading {
        int32_t peakDb = kFloorDb;     // kFloorDb to 0; rises at once, falls 20 dB in a second
        int32_t meanDb = kFloorDb;     // kFloorDb to 0, of the last 100 ms
        int32_t loudestDb = kFloorDb;  // the highest peak since begin()
        bool isClipped = false;        // a sample of the last second was at full scale
        int32_t heardSamples = 0;      // since begin()
        int32_t silentSamples = 0;     // given in the place of a device that delivers nothing

        /// True if something was as loud as kHeardDb.
        bool hasHeard() const { return loudestDb >= kHeardDb; }
    };

    /// A new take begins.
    void begin();

    /// Samples as the device gives them, in order; 16 kHz.
    void add(const int16_t* samples, int32_t count);

    Reading read() const;

    /// The level of an amplitude of 0 to 32768: 0 from 32767 on and from there down in whole
    /// decibels, rounded down, never below kFloorDb.
    static int32_t toDb(int32_t amplitude);

private:
    static constexpr int32_t kMeanBlocks = 10;

    void endBlock();
    int32_t meanDb() const;

    // The current block, a hundredth of a second.
    int32_t blockSamples = 0;
    int32_t blockPeak = 0;
    int64_t blockSquares = 0;  // at most 160 * 2^30

    std::array<int64_t, kMeanBlocks> squares{};  // of the last blocks, in a ring
    int32_t blocks = 0;                          // ended since begin()

    int32_t peakDb256 = kFloorDb * 256;
    int32_t loudest = 0;         // amplitude
    int32_t clippedSamples = 0;  // how long the mark still shows
    int32_t heard = 0;
};
