// "No effect" and "Backwards" copy every sample to its place, slice by slice.
#include "AudioSupport.h"
#include "WpNoEffect.h"
#include "WpReverse.h"

#include <gtest/gtest.h>

using audio::Array;
using audio::Samples;

TEST(WpNoEffect, resultIsTheSource) {
    WpNoEffect proc;
    for (const int32_t count : {1, 7999, 8000, 8001, 80000}) {
        const Samples samples = audio::noise(count, 32767);
        EXPECT_EQ(samples, audio::run(proc, samples));
    }
}

TEST(WpNoEffect, tenSecondsTakeTenCalls) {
    WpNoEffect proc;
    std::vector<int32_t> progress;
    audio::run(proc, Samples(80000), progress);
    EXPECT_EQ((std::vector<int32_t>{102, 204, 307, 409, 512, 614, 716, 819, 921, 1024}), progress);
}

TEST(WpNoEffect, everySliceCopiesTheWholeRest) {
    WpNoEffect proc;
    const Samples samples = audio::noise(20000, 32767);
    proc.init(audio::toArray(samples).get(), 8000);
    proc.process();
    EXPECT_EQ(samples, audio::toVector(Array<int32_t>(proc.getResult()).get()));
}

namespace {

/// Lets a test spoil the result between two slices.
template <typename Processor>
class Spoiled : public Processor {
public:
    void spoil() { std::fill_n(this->result.get(), length(this->result), 12345); }
};

template <typename Processor>
Samples secondSliceOver(const Samples& samples) {
    Spoiled<Processor> proc;
    proc.init(audio::toArray(samples).get(), 8000);
    proc.process();
    proc.spoil();
    proc.process();
    return audio::toVector(Array<int32_t>(proc.getResult()).get());
}

}  // namespace

TEST(WpNoEffect, theSecondSliceCopiesAllThatIsLeft) {
    const Samples samples = audio::noise(20000, 32767);
    const Samples result = secondSliceOver<WpNoEffect>(samples);
    EXPECT_EQ(12345, result[7999]);
    EXPECT_TRUE(std::equal(samples.begin() + 8000, samples.end(), result.begin() + 8000));
}

TEST(WpReverse, theSecondSliceReversesAllThatIsLeft) {
    const Samples samples = audio::noise(20000, 32767);
    const Samples result = secondSliceOver<WpReverse>(samples);
    EXPECT_EQ(12345, result[7999]);
    EXPECT_TRUE(std::equal(result.begin() + 8000, result.end(), samples.rbegin() + 8000));
}

TEST(WpNoEffect, soundOfNoSamplesEndsAtOnce) {
    WpNoEffect proc;
    std::vector<int32_t> progress;
    EXPECT_EQ(Samples(), audio::run(proc, Samples(), progress));
    EXPECT_EQ(std::vector<int32_t>{1024}, progress);
}

TEST(WpNoEffect, progressOfTheLongestArrayDoesNotOverflow) {
    WpNoEffect proc;
    std::vector<int32_t> progress;
    audio::run(proc, Samples(3000000), progress);
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(2, progress.front());
    EXPECT_EQ(1024, progress.back());
}

TEST(WpReverse, resultIsTheSourceFromItsEnd) {
    WpReverse proc;
    for (const int32_t count : {1, 7999, 8000, 8001, 30000}) {
        const Samples samples = audio::noise(count, 32767);
        EXPECT_EQ(Samples(samples.rbegin(), samples.rend()), audio::run(proc, samples));
    }
}

TEST(WpReverse, firstOfTenCallsReports102AndHasTheLastSampleFirst) {
    WpReverse proc;
    const Samples samples = audio::noise(80000, 32767);
    proc.init(audio::toArray(samples).get(), 8000);
    EXPECT_EQ(102, proc.process());
    const Array<int32_t> result(proc.getResult());
    EXPECT_EQ(samples[79999], result[0]);
    EXPECT_EQ(samples[0], result[79999]);  // every slice copies all that is left
}

TEST(WpReverse, progressIsThatOfNoEffect) {
    WpReverse proc;
    std::vector<int32_t> progress;
    audio::run(proc, Samples(20000), progress);
    EXPECT_EQ((std::vector<int32_t>{409, 819, 1024}), progress);
}

TEST(WpReverse, soundOfNoSamplesEndsAtOnce) {
    WpReverse proc;
    std::vector<int32_t> progress;
    EXPECT_EQ(Samples(), audio::run(proc, Samples(), progress));
    EXPECT_EQ(std::vector<int32_t>{1024}, progress);
}
