// The effects that a user can choose, in their order; the index is the effect's number everywhere.
#pragma once

#include <cstdint>

class WavProc;

class FxCatalogue {
public:
    static constexpr int32_t kNoEffect = 0;
    static constexpr int32_t kRobot = 1;
    static constexpr int32_t kBackwards = 2;
    static constexpr int32_t kHighPitch = 3;
    static constexpr int32_t kLowPitch = 4;
    static constexpr int32_t kFastTalker = 5;
    static constexpr int32_t kDrunk = 6;
    static constexpr int32_t kIntonationFlip = 7;
    static constexpr int32_t kCount = 8;

    /// A new processor; the caller deletes it. Null outside the catalogue.
    static WavProc* newProcessor(int32_t index);

    /// One word for the command line; null outside the catalogue.
    static const char* toolName(int32_t index);

    /// Index of an effect by that word, -1 if there is none.
    static int32_t find(const char* toolName);
};
