// SPDX-License-Identifier: MIT
#include "Fx.h"

#include "ArrFunc.h"
#include "FxCatalogue.h"
#include "OspBase.h"
#include "PaImage.h"
#include "Str.h"
#include "WavProc.h"

#include <iterator>

namespace {

/// The look of an effect; its sound is in FxCatalogue.
struct Look {
    const int32_t* nameId;
    const char* picture;  // its file name contains the place on the screen
};

constexpr Look kLooks[] = {
    {&Str::str_FX_NO_EFFECT, "/Res/no_effect_73_45_94_148.png"},
    {&Str::str_FX_ROBOT, "/Res/robot_64_43_103_150.png"},
    {&Str::str_FX_BACKWARDS, "/Res/backwards_73_48_94_145.png"},
    {&Str::str_FX_HIGH_PITCH, "/Res/high_pitch_70_81_97_112.png"},
    {&Str::str_FX_LOW_PITCH, "/Res/low_pitch_70_47_114_146.png"},
    {&Str::str_FX_FAST_TALKER, "/Res/fast_talker_73_67_94_126.png"},
    {&Str::str_FX_DRUNK, "/Res/drunk_73_97_94_96.png"},
    {&Str::str_FX_INTONATION_FLIP, "/Res/intonation_73_52_94_141.png"},
};
static_assert(std::size(kLooks) == FxCatalogue::kCount, "one row for each effect");

}  // namespace

Fx::Fx(int32_t nameId, Osp::Base::String* imagePath, WavProc* processor)
    : name(nameId)
    , image(new PaImage())
    , processor(processor) {
    image->set(imagePath, true, false);
}

Fx::~Fx() {
    delete image;
    delete processor;
}

Fx** Fx::newCatalogue() {
    auto** effects = newArray<Fx*>(FxCatalogue::kCount);
    for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
        Osp::Base::String picture(kLooks[i].picture);
        effects[i] = new Fx(*kLooks[i].nameId, &picture, FxCatalogue::newProcessor(i));
    }
    return effects;
}
