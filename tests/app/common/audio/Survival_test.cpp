// SPDX-License-Identifier: MIT
// No processor crashes or leaks, whatever order a caller uses its operations in.
#include "AudioSupport.h"
#include "FxCatalogue.h"
#include "TestHost.h"
#include "WpMicPostProc.h"
#include "WpRobot.h"

#include <gtest/gtest.h>

using audio::Array;
using audio::Samples;

namespace {

constexpr int32_t kMicPostProc = FxCatalogue::kCount;
constexpr int32_t kMinute = 60 * 8000;

/// All effects and the clean-up.
class Survival : public testing::TestWithParam<int32_t> {
protected:
    Survival()
        : processor(newProcessor()) {
        WpRobot::fixSeed(1);
    }

    ~Survival() override {
        WpRobot::followClock();
        WavProc::static_dtor();
    }

    static WavProc* newProcessor() {
        return GetParam() == kMicPostProc ? new WpMicPostProc()
                                          : FxCatalogue::newProcessor(GetParam());
    }

    TestHost host;
    std::unique_ptr<WavProc> processor;
};

std::string effectName(const testing::TestParamInfo<int32_t>& info) {
    return info.param == kMicPostProc ? "clean" : FxCatalogue::toolName(info.param);
}

}  // namespace

TEST_P(Survival, everyLengthRunsToItsEndAndAgain) {
    for (const int32_t count : {0, 1, 159, 160, 161, 199, 200, 249, 250, 499, 4096, 4097}) {
        const Samples samples = audio::roughSignal(count);
        const Samples first = audio::run(*processor, samples);
        EXPECT_EQ(first, audio::run(*processor, samples)) << count;
        for (const int32_t sample : first) {
            ASSERT_TRUE(sample >= -32768 && sample <= 32767);
        }
    }
}

TEST_P(Survival, aMinuteOfSpeechRunsToItsEnd) {
    const Samples samples = audio::speechOf(60);
    ASSERT_EQ(static_cast<size_t>(kMinute), samples.size());
    std::vector<int32_t> progress;
    const Samples result = audio::run(*processor, samples, progress);
    EXPECT_FALSE(result.empty());
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(1024, progress.back());
}

TEST_P(Survival, runCleanedUpInTheMiddleLeavesNoTrace) {
    const Samples samples = audio::roughSignal(5000);
    const Samples expected = audio::run(*processor, samples);
    for (const int32_t slices : {0, 1, 2, 5}) {
        processor->init(audio::toArray(audio::noise(9000, 32767)).get(), 8000);
        for (int32_t i = 0; i < slices && processor->getLastProgress() < 1024; i++) {
            processor->process();
        }
        processor->cleanUp();
        EXPECT_EQ(-1, processor->getLastProgress());
        EXPECT_EQ(expected, audio::run(*processor, samples)) << slices;
    }
}

TEST_P(Survival, runStartedOverInTheMiddleLeavesNoTrace) {
    const Samples samples = audio::roughSignal(5000);
    const Samples expected = audio::run(*processor, samples);
    processor->init(audio::toArray(audio::noise(9000, 32767)).get(), 8000);
    processor->process();
    EXPECT_EQ(expected, audio::run(*processor, samples));
}

TEST_P(Survival, callsAfterCleanUpDoNoHarm) {
    processor->init(audio::toArray(audio::roughSignal(5000)).get(), 8000);
    processor->process();
    processor->cleanUp();
    processor->cleanUp();
    EXPECT_EQ(-1, processor->process());
    EXPECT_EQ(-1, processor->getLastProgress());
    EXPECT_EQ(nullptr, processor->getResult());
    EXPECT_EQ(-1, processor->process());
}

TEST_P(Survival, callBeforeTheFirstRunDoesNoHarm) {
    EXPECT_EQ(-1, processor->process());
    EXPECT_EQ(-1, processor->getLastProgress());
}

TEST_P(Survival, callAfterTheEndEndsTheRunAndTheDriverMayStartAgain) {
    const Samples samples = audio::roughSignal(5000);
    const Samples expected = audio::run(*processor, samples);
    processor->init(audio::toArray(samples).get(), 8000);
    while (processor->process() < 1024) {
    }
    EXPECT_EQ(-1, processor->process());
    EXPECT_EQ(-1, processor->getLastProgress());
    EXPECT_EQ(expected, audio::run(*processor, samples));
}

TEST_P(Survival, processorDeletedInTheMiddleFreesEverything) {
    const Samples samples = audio::roughSignal(5000);
    const Samples expected = audio::run(*processor, samples);
    processor->init(audio::toArray(audio::roughSignal(60000)).get(), 8000);
    processor->process();
    EXPECT_GT(1024, processor->getLastProgress());
    processor.reset();  // the leak checker notices what is not freed
    // The arrays that it used are free for the next one.
    processor.reset(newProcessor());
    EXPECT_EQ(expected, audio::run(*processor, samples));
}

TEST_P(Survival, otherRunsBetweenTheSlicesChangeNothingButTheSharedVoice) {
    // The robot's voice lives in the class; every other processor may be interleaved with any.
    const Samples samples = audio::roughSignal(5000);
    const Samples expected = audio::run(*processor, samples);
    const bool isVoice =
        GetParam() == FxCatalogue::kRobot || GetParam() == FxCatalogue::kIntonationFlip;
    const std::unique_ptr<WavProc> other(
        FxCatalogue::newProcessor(isVoice ? FxCatalogue::kDrunk : FxCatalogue::kRobot));
    processor->init(audio::toArray(samples).get(), 8000);
    while (processor->getLastProgress() < 1024) {
        if (other->getLastProgress() == -1) {
            other->init(audio::toArray(audio::noise(700, 32767)).get(), 8000);
        } else if (other->getLastProgress() == 1024) {
            deleteArrFunc(other->getResult());
        } else {
            other->process();
        }
        processor->process();
    }
    EXPECT_EQ(expected, audio::toVector(Array<int32_t>(processor->getResult()).get()));
}

TEST_P(Survival, samplesFarOutsideSixteenBitsDoNoHarm) {
    Samples samples = audio::noise(6000, 0x3FFFFFFF);
    samples[100] = std::numeric_limits<int32_t>::min();
    samples[3000] = std::numeric_limits<int32_t>::max();
    audio::run(*processor, samples);  // the sanitizer notices an overflow that is not meant
    EXPECT_EQ(-1, processor->getLastProgress());
}

TEST_P(Survival, soundBeyondThe32BitPositionsStaysInsideItsArrays) {
    const Samples samples(2100000, 1000);  // 262.5 s
    audio::run(*processor, samples);
    EXPECT_EQ(-1, processor->getLastProgress());
}

INSTANTIATE_TEST_SUITE_P(Processors, Survival, testing::Range(0, kMicPostProc + 1), effectName);
