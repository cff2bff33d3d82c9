// SPDX-License-Identifier: MIT
// The catalogue has the eight effects in their order, each with its own kind of processor.
#include "AudioSupport.h"
#include "Butterworth.h"
#include "FxCatalogue.h"
#include "IntArrayCurve.h"
#include "WpNoEffect.h"
#include "WpPitchAndTimeStretch.h"
#include "WpReverse.h"
#include "WpRobot.h"
#include "WpVocoder.h"

#include <gtest/gtest.h>

#include <type_traits>

using audio::Samples;

namespace {

template <typename T>
bool isA(int32_t index) {
    const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(index));
    return dynamic_cast<T*>(processor.get()) != nullptr;
}

}  // namespace

TEST(FxCatalogue, hasEightEffectsInTheirOrder) {
    const char* const names[] = {"none", "robot", "backwards", "high",
                                 "low",  "fast",  "drunk",     "flip"};
    ASSERT_EQ(8, FxCatalogue::kCount);
    for (int32_t i = 0; i < 8; i++) {
        EXPECT_STREQ(names[i], FxCatalogue::toolName(i));
        EXPECT_EQ(i, FxCatalogue::find(names[i]));
    }
}

TEST(FxCatalogue, eachEffectHasItsKindOfProcessor) {
    EXPECT_TRUE(isA<WpNoEffect>(FxCatalogue::kNoEffect));
    EXPECT_TRUE(isA<WpRobot>(FxCatalogue::kRobot));
    EXPECT_TRUE(isA<WpReverse>(FxCatalogue::kBackwards));
    EXPECT_TRUE(isA<WpPitchAndTimeStretch>(FxCatalogue::kHighPitch));
    EXPECT_TRUE(isA<WpPitchAndTimeStretch>(FxCatalogue::kLowPitch));
    EXPECT_TRUE(isA<WpPitchAndTimeStretch>(FxCatalogue::kFastTalker));
    EXPECT_TRUE(isA<WpPitchAndTimeStretch>(FxCatalogue::kDrunk));
    EXPECT_TRUE(isA<WpRobot>(FxCatalogue::kIntonationFlip));
}

TEST(FxCatalogue, thereIsNoNinthEffect) {
    for (const int32_t index : {-1, 8, 1000}) {
        EXPECT_EQ(nullptr, FxCatalogue::newProcessor(index));
        EXPECT_EQ(nullptr, FxCatalogue::toolName(index));
    }
    for (const char* name : {"", "rapper", "vocoder", "None", "nones"}) {
        EXPECT_EQ(-1, FxCatalogue::find(name));
    }
}

TEST(FxCatalogue, classesOutsideTheCatalogueHaveNothingToInitialise) {
    EXPECT_TRUE(std::is_empty_v<WpVocoder>);
    EXPECT_TRUE(std::is_empty_v<Butterworth>);
    EXPECT_TRUE(std::is_empty_v<IntArrayCurve>);
    const Samples samples = audio::roughSignal(1000);
    const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(FxCatalogue::kDrunk));
    const Samples expected = audio::run(*processor, samples);
    WpVocoder::static_ctor();
    Butterworth::static_ctor();
    IntArrayCurve::static_ctor();
    EXPECT_EQ(expected, audio::run(*processor, samples));
    WpVocoder::static_dtor();
    Butterworth::static_dtor();
    IntArrayCurve::static_dtor();
    EXPECT_EQ(expected, audio::run(*processor, samples));
}
