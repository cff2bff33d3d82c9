// SPDX-License-Identifier: MIT
// Keeps the big sample arrays of finished runs for the next run: fresh memory for 20 seconds of
// sound costs more time than most effects.
//
// Arrays are counted arrays; one that is kept may have room for more samples than its count says.
// Only one run goes on at a time, so a few slots are enough.
#pragma once

#include <cstdint>

class SampleKeep {
public:
    /// Returns a copy of samples (null counts as no samples), to be returned with giveBack.
    static int32_t* takeCopy(const int32_t* samples);

    /// Takes back any counted array; one that did not come from here is deleted. Null does nothing.
    static void giveBack(int32_t* samples);

    /// Frees the arrays that are not in use. The others are freed when they are given back.
    static void clear();

private:
    struct Slot {
        int32_t* samples = nullptr;
        int32_t capacity = 0;  // samples
        bool lent = false;
    };

    // One for the source of a run, one for a grain synthesizer's own copy of it.
    static constexpr int32_t kSlots = 2;

    static int32_t* lend(int32_t count);
    static Slot* freeSlotFor(int32_t count);

    static Slot slots[kSlots];
};
