// Keeps the big sample arrays of finished runs for the next run: fresh memory for 20 seconds of
// sound costs more time than most effects.
//
// Arrays are counted arrays; one that is kept may have room for more samples than its count says.
// One run is in hand at a time, so a few slots are enough.
#pragma once

#include <cstdint>

class SampleKeep {
public:
    /// A copy of samples (null: of no samples). It goes back with giveBack.
    static int32_t* takeCopy(const int32_t* samples);

    /// Takes back any counted array; one that did not come from here is deleted. Null does nothing.
    static void giveBack(int32_t* samples);

    /// Frees everything that is not in use, and will free the rest when it comes back.
    static void clear();

private:
    struct Slot {
        int32_t* samples = nullptr;
        int32_t capacity = 0;  // samples
        bool lent = false;
    };

    // The source of a run, and a grain synthesizer's own copy of one.
    static constexpr int32_t kSlots = 2;

    static int32_t* lend(int32_t count);
    static Slot* freeSlotFor(int32_t count);

    static Slot slots[kSlots];
};
