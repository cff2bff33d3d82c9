// SPDX-License-Identifier: MIT
// An effect that the user can choose: its name, its picture, and the processor that applies it.
#pragma once

#include "ClassLife.h"

#include <cstdint>

class PaImage;
class WavProc;

namespace Osp::Base {
class String;
}

class Fx : public ClassLife {
public:
    /// @param nameId     text of the effect's name
    /// @param imagePath  of its picture, whose name contains the place; not owned
    /// @param processor  owned from now on
    Fx(int32_t nameId, Osp::Base::String* imagePath, WavProc* processor);
    Fx(const Fx&) = delete;
    Fx& operator=(const Fx&) = delete;

    /// Deletes the picture's painter and then the processor.
    virtual ~Fx();

    /// The effects that the user can choose, in the order of FxCatalogue: a new counted array; the
    /// caller owns the array and its elements.
    static Fx** newCatalogue();

    int32_t name;
    PaImage* image;      // owned
    WavProc* processor;  // owned
};
