// SPDX-License-Identifier: MIT
// Lightness, saturation and opacity combine by the stated rules, and their pool is reused.
#include "OspBase.h"
#include "PixProps.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace {

void expectProps(int32_t lightness, int32_t saturation, int32_t opacity, const PixProps* actual) {
    EXPECT_EQ(lightness, actual->lightness);
    EXPECT_EQ(saturation, actual->saturation);
    EXPECT_EQ(opacity, actual->opacity);
}

}  // namespace

TEST(PixProps, newOnesChangeNothing) {
    PixProps props;
    EXPECT_TRUE(props.isDefault());
    expectProps(256, 256, 256, &props);
}

TEST(PixProps, anyOtherValueIsNoDefault) {
    EXPECT_FALSE(PixProps(255, 256, 256).isDefault());
    EXPECT_FALSE(PixProps(256, 257, 256).isDefault());
    EXPECT_FALSE(PixProps(256, 256, 300).isDefault());
    PixProps props(1, 2, 3);
    props.setDefault();
    EXPECT_TRUE(props.isDefault());
}

TEST(PixProps, scalingHoldsOnlyTheLightnessAtWhite) {
    PixProps props(400, 300, 300);
    PixProps other(400, 300, 300);
    props.scale(&other);
    expectProps(512, 351, 351, &props);
}

TEST(PixProps, scalingTruncates) {
    PixProps props(255, 255, 1);
    PixProps other(255, 128, 255);
    props.scale(&other);
    expectProps(254, 127, 0, &props);
}

TEST(PixProps, aNegativeLightnessTurnsWhiteWhenScaled) {
    PixProps props(-1, -256, -512);
    PixProps other(256, 256, 256);
    props.scale(&other);
    expectProps(512, -256, -512, &props);
}

TEST(PixProps, scalingByNothingChangesNothing) {
    PixProps props(600, 700, 800);
    props.scale(nullptr);
    expectProps(600, 700, 800, &props);
}

TEST(PixProps, combiningNothingGivesTheDefaults) {
    PixProps props(1, 2, 3);
    props.set(nullptr, nullptr);
    EXPECT_TRUE(props.isDefault());
}

TEST(PixProps, combiningTakesTheOneThereIsOrScalesBoth) {
    PixProps own(128, 256, 128);
    PixProps inherited(256, 64, 128);
    PixProps props;
    props.set(&own, nullptr);
    expectProps(128, 256, 128, &props);
    props.set(nullptr, &inherited);
    expectProps(256, 64, 128, &props);
    props.set(&own, &inherited);
    expectProps(128, 64, 64, &props);
}

TEST(PixProps, takenAloneItIsNotHeldAtWhite) {
    PixProps own(900, 256, 256);
    PixProps props;
    props.set(&own, nullptr);
    EXPECT_EQ(900, props.lightness);
}

TEST(PixProps, freedOneBecomesWhiteGreyAndOpaque) {
    PixProps* props = PixProps::alloc(1, 2, 3);
    props->free();
    expectProps(512, 0, 256, props);  // still in the pool, so it may be looked at
    PixProps* next = PixProps::alloc();
    EXPECT_EQ(props, next);
    EXPECT_TRUE(next->isDefault());
    next->free();
}

TEST(PixProps, allocCopiesAndCombines) {
    PixProps* own = PixProps::alloc(128, 200, 256);
    PixProps* copy = PixProps::alloc(own);
    expectProps(128, 200, 256, copy);
    PixProps* combined = PixProps::alloc(own, copy);
    expectProps(64, 156, 256, combined);
    PixProps* defaults = PixProps::alloc(nullptr, nullptr);
    EXPECT_TRUE(defaults->isDefault());
    for (PixProps* props : {own, copy, combined, defaults}) {
        props->free();
    }
}

TEST(PixProps, textNamesAddressAndValues) {
    PixProps props(1, -2, 300);
    char expected[120];
    std::snprintf(expected, sizeof expected,
                  "PixProps %p: lightness = 1, saturation = -2, opacity = 300",
                  static_cast<void*>(&props));
    std::unique_ptr<Osp::Base::String> text(props.toString());
    EXPECT_EQ(expected, text->ToUtf8());
}

TEST(PixProps, poolIsEmptyAfterItsEndAndFillsAgain) {
    PixProps::alloc()->free();
    PixProps::static_dtor();
    PixProps::static_dtor();
    PixProps* next = PixProps::alloc(7, 8, 9);
    expectProps(7, 8, 9, next);
    next->free();
}
