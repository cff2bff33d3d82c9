// SPDX-License-Identifier: MIT
// The effects that a user can choose: one row for each, in their order. The index of a row is the
// effect's number everywhere.
#pragma once

#include <cstdint>

class WavProc;

class FxCatalogue {
public:
    enum Index : int32_t {
        kNoEffect,
        kRobot,
        kBackwards,
        kHighPitch,
        kLowPitch,
        kFastTalker,
        kDrunk,
        kIntonationFlip,
        kCount
    };

    struct Effect {
        const char* word;        // on the command line; lower case
        const char* shownName;   // in English, as the screen shows it but in lower case
        const char* sentence;    // what the user hears; no full stop
        int32_t longestSamples;  // positions in a longer sound overflow
        WavProc* (*make)();      // a new processor; the caller deletes it
    };

    /// @param index  0 to kCount - 1
    static const Effect& at(int32_t index);

    /// A new processor; the caller deletes it. Null outside the catalogue.
    static WavProc* newProcessor(int32_t index);

    /// One word for the command line; null outside the catalogue.
    static const char* toolName(int32_t index);

    /// The index of the effect with that word; -1 if there is none.
    static int32_t find(const char* toolName);
};
