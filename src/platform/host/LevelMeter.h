// SPDX-License-Identifier: MIT
// Measures how loud the microphone is: peak and mean in whole decibels of full scale, the same
// numbers on every machine.
//
// Not safe for several threads: a device with a thread of its own must protect it by a lock.
#pragma once

#include <array>
#include <cstdint>

class LevelMeter {
public:
    static constexpr int32_t kFloorDb = -60;  // the lowest level that is measured

    /// A take that never reaches this holds no speech.
    static constexpr int32_t kHeardDb = -50;

    struct Reading {
        int32_t peakDb = kFloorDb;     // kFloorDb to 0; rises at once, falls 20 dB a second
        int32_t meanDb = kFloorDb;     // kFloorDb to 0, of the last 100 ms
        int32_t loudestDb = kFloorDb;  // the highest peak since begin()
        bool isClipped = false;        // a sample of the last second was at full scale
        int32_t heardSamples = 0;      // since begin()
        int32_t silentSamples = 0;     // put in place of a device that delivers nothing

        /// True if a sample was at least as loud as kHeardDb.
        bool hasHeard() const { return loudestDb >= kHeardDb; }
    };

    /// Begins a new take: forgets everything.
    void begin();

    /// Samples as the device gives them, in order; 16 kHz.
    void add(const int16_t* samples, int32_t count);

    Reading read() const;

    /// The level in decibels of an amplitude of 0 to 32768, rounded down: 0 for 32767 and 32768,
    /// never less than kFloorDb.
    static int32_t toDb(int32_t amplitude);

private:
    static constexpr int32_t kMeanBlocks = 10;

    void endBlock();
    int32_t meanDb() const;

    // The current block: a hundredth of a second.
    int32_t blockSamples = 0;
    int32_t blockPeak = 0;
    int64_t blockSquares = 0;  // at most 160 * 2^30

    std::array<int64_t, kMeanBlocks> squares{};  // of the last blocks, in a ring
    int32_t blocks = 0;                          // blocks that have ended since begin()

    int32_t peakDb256 = kFloorDb * 256;
    int32_t loudest = 0;         // amplitude
    int32_t clippedSamples = 0;  // samples until isClipped ends
    int32_t heard = 0;
};
