// SPDX-License-Identifier: MIT
// An object that paints itself into its rectangle.
#pragma once

#include "Bounded.h"

#include <cstdint>

class AppImage;
class PixProps;

class Painter : public Bounded {
public:
    /// Paints with the painter's rectangle shifted by (x, y).
    /// @param clip       never null; nothing outside is touched
    /// @param inherited  modifiers of the array that the painter is part of; may be null
    virtual void
    paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) = 0;

    /// Works out again what the painter derives from its resources. Called after a change of the
    /// language, of a text or of a picture.
    virtual void refresh() = 0;

    /// The painter's own modifiers; the painter keeps them.
    virtual PixProps* getPixProps() = 0;

    /// Copies the given modifiers; null sets the defaults.
    virtual void setPixProps(PixProps* props) = 0;
};
