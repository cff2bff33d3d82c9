// SPDX-License-Identifier: MIT
// A processor goes through the states of a run, and the shared kernels equal plain loops.
#include "AudioSupport.h"
#include "OspBase.h"
#include "SlowEffects.h"
#include "WavProc.h"

#include <gtest/gtest.h>

using audio::Array;
using audio::Samples;

namespace {

/// Returns scripted progress values and counts what is called.
class ScriptedProc : public WavProc {
public:
    explicit ScriptedProc(std::vector<int32_t> script)
        : script(std::move(script)) {}

    ~ScriptedProc() override = default;

    void doInit() override {
        inits++;
        newResult(3);
        result[0] = 7;
    }

    int32_t doProcess() override {
        sourceLengths.push_back(source == nullptr ? -1 : length(source));
        if (failsInside) {
            exc("inside");
        }
        const int32_t progress = script.at(calls);
        calls++;
        return progress;
    }

    void doCleanup() override { cleanUps++; }

    bool isClean() const { return source == nullptr && result == nullptr; }

    const int32_t* sourceArray() const { return source; }

    std::vector<int32_t> script;
    size_t calls = 0;
    int32_t inits = 0;
    int32_t cleanUps = 0;
    bool failsInside = false;
    std::vector<int32_t> sourceLengths;
};

Array<int32_t> fiveSamples() {
    return audio::toArray(Samples{1, 2, 3, 4, 5});
}

}  // namespace

TEST(WavProc, newProcessorIsIdle) {
    ScriptedProc proc({});
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_EQ(0, proc.getSrate());
    EXPECT_TRUE(proc.isClean());
}

TEST(WavProc, initCopiesTheSamplesAndKeepsTheRate) {
    ScriptedProc proc({});
    const Array<int32_t> samples = fiveSamples();
    proc.init(samples.get(), 8000);
    EXPECT_EQ(0, proc.getLastProgress());
    EXPECT_EQ(8000, proc.getSrate());
    EXPECT_EQ(1, proc.inits);
    EXPECT_NE(samples.get(), proc.sourceArray());
    samples[0] = 99;
    EXPECT_EQ((Samples{1, 2, 3, 4, 5}), audio::toVector(proc.sourceArray()));
}

TEST(WavProc, initWithOwnTakesTheSamplesOverAndCopiesNone) {
    ScriptedProc proc({5, 1024});
    Array<int32_t> samples = fiveSamples();
    const int32_t* const own = samples.get();
    proc.initWithOwn(std::move(samples), 8000);
    EXPECT_EQ(0, proc.getLastProgress());
    EXPECT_EQ(8000, proc.getSrate());
    EXPECT_EQ(1, proc.inits);
    EXPECT_EQ(own, proc.sourceArray());
    EXPECT_EQ((Samples{1, 2, 3, 4, 5}), audio::toVector(proc.sourceArray()));
    proc.process();
    proc.initWithOwn(audio::toArray(Samples{8}), 8000);  // drops the current run
    EXPECT_EQ(Samples{8}, audio::toVector(proc.sourceArray()));
    proc.cleanUp();
    EXPECT_TRUE(proc.isClean());
}

TEST(WavProc, initWithNoArrayOfItsOwnIsASoundOfLengthZero) {
    ScriptedProc proc({});
    proc.initWithOwn(Array<int32_t>(), 8000);
    EXPECT_NE(nullptr, proc.sourceArray());
    EXPECT_EQ(0, length(proc.sourceArray()));
}

TEST(WavProc, progressMayStayLevelAndRunsToTheEnd) {
    ScriptedProc proc({0, 0, 5, 5, 1024});
    proc.init(fiveSamples().get(), 8000);
    for (const int32_t expected : {0, 0, 5, 5, 1024}) {
        EXPECT_EQ(expected, proc.process());
        EXPECT_EQ(expected, proc.getLastProgress());
    }
    EXPECT_EQ(0, proc.cleanUps);
}

TEST(WavProc, resultIsACopyAndCanBeFetchedOnce) {
    ScriptedProc proc({1024});
    proc.init(fiveSamples().get(), 8000);
    proc.process();
    const Array<int32_t> result(proc.getResult());
    EXPECT_EQ((Samples{7, 0, 0}), audio::toVector(result.get()));
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_EQ(1, proc.cleanUps);
    EXPECT_TRUE(proc.isClean());
    EXPECT_EQ(nullptr, proc.getResult());
}

TEST(WavProc, processBeforeInitCleansUpAndStaysIdle) {
    ScriptedProc proc({100});
    EXPECT_EQ(-1, proc.process());
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_EQ(1, proc.cleanUps);
    EXPECT_EQ(std::vector<int32_t>{-1}, proc.sourceLengths);  // called, without a source
}

TEST(WavProc, processAfterTheEndEndsTheRun) {
    ScriptedProc proc({1024, 1024});
    proc.init(fiveSamples().get(), 8000);
    proc.process();
    EXPECT_EQ(-1, proc.process());
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_EQ((std::vector<int32_t>{5, -1}), proc.sourceLengths);
    EXPECT_TRUE(proc.isClean());
}

TEST(WavProc, progressBeyondTheEndOrBackwardsEndsTheRun) {
    for (const auto& script : {std::vector<int32_t>{5, 1025}, {5, 4}, {5, -1}}) {
        ScriptedProc proc(script);
        proc.init(fiveSamples().get(), 8000);
        EXPECT_EQ(5, proc.process());
        EXPECT_EQ(-1, proc.process());
        EXPECT_EQ(-1, proc.getLastProgress());
        EXPECT_EQ(1, proc.cleanUps);
        EXPECT_TRUE(proc.isClean());
    }
}

TEST(WavProc, errorInsideASliceLeavesTheDriverFreeToStartAgain) {
    ScriptedProc proc({100, 1024});
    proc.failsInside = true;
    proc.init(fiveSamples().get(), 8000);
    EXPECT_EQ(-1, proc.process());
    EXPECT_EQ(-1, proc.getLastProgress());
    proc.failsInside = false;
    proc.init(fiveSamples().get(), 8000);
    EXPECT_EQ(1024, proc.process());
    EXPECT_EQ(1024, proc.getLastProgress());
}

TEST(WavProc, bothFormsOfTheErrorHookCleanUp) {
    ScriptedProc proc({});
    proc.init(fiveSamples().get(), 8000);
    proc.exc("text");
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_TRUE(proc.isClean());
    proc.init(fiveSamples().get(), 8000);
    Osp::Base::String text("text");
    proc.exc(&text);
    EXPECT_EQ(-1, proc.getLastProgress());
    EXPECT_TRUE(proc.isClean());
}

TEST(WavProc, initInTheMiddleOfARunStartsAfresh) {
    ScriptedProc proc({500, 0});
    proc.init(fiveSamples().get(), 8000);
    proc.process();
    proc.init(audio::toArray(Samples{8}).get(), 8000);
    EXPECT_EQ(0, proc.getLastProgress());
    EXPECT_EQ(Samples{8}, audio::toVector(proc.sourceArray()));
}

TEST(WavProc, noSamplesAtAllAreASoundOfLengthZero) {
    ScriptedProc proc({});
    proc.init(nullptr, 8000);
    EXPECT_EQ(0, length(proc.sourceArray()));
}

TEST(WavProc, copyStretchedOntoTheSameLengthIsACopy) {
    const Samples input = audio::noise(50, 32767);
    const Array<int32_t> out(newArray<int32_t>(20));
    WavProc::copyStretched(audio::toArray(input).get(), 10, 29, out.get(), 0, 19);
    EXPECT_EQ(Samples(input.begin() + 10, input.begin() + 30), audio::toVector(out.get()));
}

TEST(WavProc, copyStretchedInterpolatesWithRounding) {
    const Array<int32_t> src = audio::toArray(Samples{0, 3, -3, 9});
    const Array<int32_t> out(newArray<int32_t>(6));
    WavProc::copyStretched(src.get(), 0, 2, out.get(), 1, 5);
    // Positions 0, 0.5, 1, 1.5, 2; a half is rounded up.
    EXPECT_EQ((Samples{0, 0, 2, 3, 0, -3}), audio::toVector(out.get()));
}

TEST(WavProc, copyStretchedIsThePlainLoopAtEveryRatio) {
    const Samples input = audio::roughSignal(2000);
    const Array<int32_t> src = audio::toArray(input);
    for (const int32_t read : {1, 2, 3, 100, 399, 719, 1999}) {
        for (const int32_t count : {2, 3, 7, 8, 9, 400, 800, 1001}) {
            const Array<int32_t> out(newArray<int32_t>(count));
            WavProc::copyStretched(src.get(), 0, read - 1, out.get(), 0, count - 1);
            ASSERT_EQ(audio::slow::stretched(input, 0, read - 1, count), audio::toVector(out.get()))
                << read << " onto " << count;
        }
    }
}

TEST(WavProc, copyStretchedOntoOneSampleTakesTheFirst) {
    const Array<int32_t> out(newArray<int32_t>(1));
    WavProc::copyStretched(fiveSamples().get(), 1, 3, out.get(), 0, 0);
    EXPECT_EQ(2, out[0]);
}

TEST(WavProc, copyStretchedOntoNothingWritesNothing) {
    const Array<int32_t> out = audio::toArray(Samples{9});
    WavProc::copyStretched(fiveSamples().get(), 1, 3, out.get(), 0, -1);
    EXPECT_EQ(9, out[0]);
}

TEST(WavProc, copyStretchedReadsSilenceOutsideAndDropsWhatDoesNotFit) {
    const Array<int32_t> out(newArray<int32_t>(3));
    WavProc::copyStretched(fiveSamples().get(), -1, 6, out.get(), -1, 6);
    EXPECT_EQ((Samples{1, 2, 3}), audio::toVector(out.get()));
    WavProc::copyStretched(fiveSamples().get(), 3, 5, out.get(), 0, 2);
    EXPECT_EQ((Samples{4, 5, 0}), audio::toVector(out.get()));
}

TEST(WavProc, addCrossFadedIsThePlainLoop) {
    for (const int32_t fade : {1, 2, 7, 100, 200}) {
        for (const int32_t total : {0, fade, fade + 1, fade + 2, 500}) {
            const Samples src = audio::roughSignal(800, 1);
            Samples expected = audio::roughSignal(800, 2);
            const Array<int32_t> dst = audio::toArray(expected);
            audio::slow::crossFade(src, 37, expected, 111, fade, total);
            WavProc::addCrossFaded(audio::toArray(src).get(), 37, dst.get(), 111, fade, total);
            ASSERT_EQ(expected, audio::toVector(dst.get())) << fade << " of " << total;
        }
    }
}

TEST(WavProc, addCrossFadedStaysInsideItsArrays) {
    const Array<int32_t> dst = audio::toArray(Samples{0, 0, 0});
    WavProc::addCrossFaded(fiveSamples().get(), 3, dst.get(), -1, 1, 9);
    EXPECT_EQ((Samples{5, 0, 0}), audio::toVector(dst.get()));
    WavProc::addCrossFaded(fiveSamples().get(), 0, dst.get(), 2, 0, 9);
    EXPECT_EQ((Samples{5, 0, 0}), audio::toVector(dst.get()));
}
