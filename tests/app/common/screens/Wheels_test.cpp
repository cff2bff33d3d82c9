// SPDX-License-Identifier: MIT
// The wheels of the recorder turn in six phases.
#include "AppImage.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "PaImage.h"
#include "ScreensTest.h"
#include "Str.h"
#include "WavProc.h"
#include "Wheels.h"

namespace {

class WheelsTest : public ScreensTest {};

class FxTest : public ScreensTest {};

}  // namespace

TEST_F(WheelsTest, sixPhasesTurnOverTheBackground) {
    PaImage* const phases[] = {nullptr,       G::piWheels15, G::piWheels30,
                               G::piWheels45, G::piWheels60, G::piWheels75};
    Bounds window(176, 179, 64, 32);
    for (int32_t frame = 0; frame < 13; frame++) {
        G::scr->set(0xFF00FF00);
        AppImage expected(G::scr);
        G::piBg->paintOn(&expected, 0, 0, &window, nullptr);
        if (phases[frame % 6] != nullptr) {
            phases[frame % 6]->paintOn(&expected, 0, 0, G::scrB, nullptr);
        }
        Wheels::paint(frame);
        EXPECT_EQ(Pixels(expected.pixels.get(), expected.pixels + 240 * 320), picture()) << frame;
    }
}

TEST_F(WheelsTest, everyPhaseLooksDifferent) {
    std::vector<Pixels> seen;
    for (int32_t frame = 0; frame < 6; frame++) {
        Wheels::paint(frame);
        for (const Pixels& other : seen) {
            EXPECT_NE(other, picture());
        }
        seen.push_back(picture());
    }
}

TEST_F(FxTest, theCatalogueHasEightEffectsWithNamesPicturesAndProcessors) {
    const struct {
        int32_t name;
        int32_t x, y, w, h;
    } expected[] = {
        {Str::str_FX_NO_EFFECT, 73, 45, 94, 148},  {Str::str_FX_ROBOT, 64, 43, 103, 150},
        {Str::str_FX_BACKWARDS, 73, 48, 94, 145},  {Str::str_FX_HIGH_PITCH, 70, 81, 97, 112},
        {Str::str_FX_LOW_PITCH, 70, 47, 114, 146}, {Str::str_FX_FAST_TALKER, 73, 67, 94, 126},
        {Str::str_FX_DRUNK, 73, 97, 94, 96},       {Str::str_FX_INTONATION_FLIP, 73, 52, 94, 141},
    };

    for (int32_t i = 0; i < 8; i++) {
        const Fx* effect = G::fxs[i];
        EXPECT_EQ(expected[i].name, effect->name) << i;
        EXPECT_EQ(expected[i].x, effect->image->getX()) << i;
        EXPECT_EQ(expected[i].y, effect->image->getY()) << i;
        EXPECT_EQ(expected[i].w, effect->image->getWidth()) << i;
        EXPECT_EQ(expected[i].h, effect->image->getHeight()) << i;
        ASSERT_NE(nullptr, effect->processor) << i;
        EXPECT_EQ(-1, effect->processor->getLastProgress()) << i;
    }
}
