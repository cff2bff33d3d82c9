// SPDX-License-Identifier: MIT
// A rectangle of one colour.
#pragma once

#include "AbstractPainter.h"

class PaColor : public AbstractPainter {
public:
    /// @param argb  premultiplied
    void set(uint32_t argb) { this->argb = argb; }

    uint32_t get() const { return argb; }

    /// Deliberate: only the inherited modifiers are used, not the painter's own, because the colour
    /// itself says how light and how transparent the rectangle is.
    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;

private:
    uint32_t argb = 0;
};
