// SPDX-License-Identifier: MIT
// Arrays that are kept for the next run are counted and given back, and none is lost.
#include "AudioSupport.h"
#include "SampleKeep.h"

#include <gtest/gtest.h>

using audio::Samples;

namespace {

/// Silence of that length, taken from SampleKeep.
int32_t* take(int32_t count) {
    auto* silence = newArray<int32_t>(count);
    int32_t* copy = SampleKeep::takeCopy(silence);
    deleteArrFunc(silence);
    return copy;
}

}  // namespace

TEST(SampleKeep, takenArrayIsSilentAndCounted) {
    int32_t* first = take(100);
    std::fill_n(first, 100, 9);
    SampleKeep::giveBack(first);
    int32_t* second = take(60);
    EXPECT_EQ(Samples(60), audio::toVector(second));
    SampleKeep::giveBack(second);
    SampleKeep::clear();
}

TEST(SampleKeep, copyHasTheSamplesAndTheirCount) {
    const Samples samples = audio::noise(77, 100);
    int32_t* large = take(1000);
    SampleKeep::giveBack(large);
    int32_t* copy = SampleKeep::takeCopy(audio::toArray(samples).get());
    EXPECT_EQ(samples, audio::toVector(copy));
    SampleKeep::giveBack(copy);
    copy = SampleKeep::takeCopy(nullptr);
    EXPECT_EQ(0, length(copy));
    SampleKeep::giveBack(copy);
    SampleKeep::clear();
}

TEST(SampleKeep, moreArraysThanItKeepsAreArraysAllTheSame) {
    int32_t* arrays[6];
    for (int32_t i = 0; i < 6; i++) {
        arrays[i] = take(10 + i);
        arrays[i][9] = i;
    }
    for (int32_t i = 0; i < 6; i++) {
        EXPECT_EQ(10 + i, length(arrays[i]));
        EXPECT_EQ(i, arrays[i][9]);
        SampleKeep::giveBack(arrays[i]);
    }
    SampleKeep::clear();
}

TEST(SampleKeep, foreignArraysAndNullAreTakenBackAndNotKept) {
    int32_t* used = take(5);
    used[4] = 3;
    int32_t* kept = take(7);
    SampleKeep::giveBack(kept);
    SampleKeep::giveBack(nullptr);
    SampleKeep::giveBack(newArray<int32_t>(7));  // the leak checker notices if it is not freed
    EXPECT_EQ(5, length(used));
    EXPECT_EQ(3, used[4]);
    int32_t* again = take(7);
#ifndef MURMELO_SANITIZED  // under which nothing is kept
    EXPECT_EQ(kept, again);
#endif
    EXPECT_EQ(Samples(7), audio::toVector(again));
    SampleKeep::giveBack(again);
    SampleKeep::giveBack(used);
    SampleKeep::clear();
}

TEST(SampleKeep, clearLeavesWhatIsInUse) {
    int32_t* used = take(5);
    SampleKeep::clear();
    used[4] = 3;
    EXPECT_EQ(3, used[4]);
    SampleKeep::giveBack(used);
    SampleKeep::clear();
}
