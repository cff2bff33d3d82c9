// SPDX-License-Identifier: MIT
// "No effect" and "Backwards" copy every sample to its place, slice by slice.
#include "AudioSupport.h"
#include "WpNoEffect.h"
#include "WpReverse.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

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

TEST(WpNoEffect, theFirstSliceMakesTheWholeResult) {
    WpNoEffect proc;
    const Samples samples = audio::noise(20000, 32767);
    proc.init(audio::toArray(samples).get(), 8000);
    proc.process();
    EXPECT_EQ(samples, audio::toVector(Array<int32_t>(proc.getResult()).get()));
}

namespace {

/// Shows the result between two slices.
template <typename Processor>
class Opened : public Processor {
public:
    using Processor::Processor;

    int32_t* openResult() { return this->result.get(); }
};

/// The slow model: every slice copies all remaining samples.
class SlowCopy : public WavProc {
public:
    explicit SlowCopy(bool backwards)
        : backwards(backwards) {}

    void doInit() override {
        newResult(length(source));
        position = 0;
    }

    int32_t doProcess() override {
        const int32_t samples = length(source);
        for (int32_t i = position; i < samples; i++) {
            result.get()[i] = source[backwards ? samples - 1 - i : i];
        }
        position = std::min(position + 8000, samples);
        return static_cast<int32_t>(int64_t{position} * 1024 / samples);
    }

    void doCleanup() override {}

private:
    bool backwards;
    int32_t position = 0;
};

/// Runs the model and the processor (which has dropped a run before), and compares progress and
/// result after every slice.
template <typename Processor>
void expectTheModelAfterEverySlice(bool backwards) {
    Opened<Processor> proc;
    Opened<SlowCopy> model(backwards);
    for (const int32_t count : {1, 2, 7999, 8000, 8001, 16000, 60001}) {
        const Samples dropped = audio::noise(30000, 32767, 2);
        proc.init(audio::toArray(dropped).get(), 8000);
        proc.process();
        const Samples samples = audio::noise(count, 32767);
        proc.init(audio::toArray(samples).get(), 8000);
        model.init(audio::toArray(samples).get(), 8000);
        for (int32_t progress = 0; progress < WavProc::kFinished;) {
            progress = model.process();
            ASSERT_EQ(progress, proc.process()) << count << " samples";
            ASSERT_EQ(audio::toVector(model.openResult()), audio::toVector(proc.openResult()));
        }
    }
}

/// A result that is fetched before the first slice is silence, and one of another run is not seen.
template <typename Processor>
void expectSilenceBeforeTheFirstSlice() {
    Processor proc;
    for (const int32_t count : {5, 0, 8001}) {
        const Samples samples = audio::noise(count, 32767);
        proc.init(audio::toArray(samples).get(), 8000);
        const Array<int32_t> result(proc.getResult());
        ASSERT_NE(nullptr, result.get());
        EXPECT_EQ(Samples(samples.size()), audio::toVector(result.get()));
        EXPECT_EQ(nullptr, Array<int32_t>(proc.getResult()).get());  // once for each run
        proc.init(audio::toArray(samples).get(), 8000);
        proc.process();
        proc.cleanUp();
        EXPECT_EQ(nullptr, Array<int32_t>(proc.getResult()).get());
    }
}

/// Makes the memory pages that lie completely in an array read-only: a write to them ends the
/// process.
void forbidWrites(int32_t* array) {
    const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    const uintptr_t before = (page - reinterpret_cast<uintptr_t>(array) % page) % page;
    const uintptr_t bytes = static_cast<uintptr_t>(length(array)) * sizeof *array - before;
    char* const first = reinterpret_cast<char*>(array) + before;
    ASSERT_EQ(0, mprotect(first, bytes / page * page, PROT_READ));
}

/// The first slice of a long sound writes the result, and no later one writes to it: the writes
/// grow with the length of the sound, not with its square.
template <typename Processor>
void runWithoutWritesAfterTheFirstSlice() {
    Opened<Processor> proc;
    const Samples samples = audio::noise(800000, 32767);
    proc.init(audio::toArray(samples).get(), 8000);
    proc.process();
    forbidWrites(proc.openResult());
    int32_t slices = 1;
    while (proc.process() < WavProc::kFinished) {
        slices++;
    }
    _exit(slices + 1 == 100 ? 0 : 1);
}

}  // namespace

TEST(WpNoEffect, resultAfterEverySliceIsThatOfCopyingAllThatIsLeft) {
    expectTheModelAfterEverySlice<WpNoEffect>(false);
}

TEST(WpNoEffect, resultBeforeTheFirstSliceIsSilence) {
    expectSilenceBeforeTheFirstSlice<WpNoEffect>();
}

TEST(WpReverse, resultBeforeTheFirstSliceIsSilence) {
    expectSilenceBeforeTheFirstSlice<WpReverse>();
}

TEST(WpReverse, resultAfterEverySliceIsThatOfReversingAllThatIsLeft) {
    expectTheModelAfterEverySlice<WpReverse>(true);
}

TEST(WpNoEffect, noSliceAfterTheFirstWrites) {
    EXPECT_EXIT(runWithoutWritesAfterTheFirstSlice<WpNoEffect>(), testing::ExitedWithCode(0), "");
}

TEST(WpReverse, noSliceAfterTheFirstWrites) {
    EXPECT_EXIT(runWithoutWritesAfterTheFirstSlice<WpReverse>(), testing::ExitedWithCode(0), "");
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
    EXPECT_EQ(samples[0], result[79999]);  // the first slice makes all of it
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
