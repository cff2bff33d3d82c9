// SPDX-License-Identifier: MIT
// Paints texts of every language as the screen shows them, in one pair of fonts, so that fonts can
// be chosen by eye.
#pragma once

#include "PaStretcher.h"

#include <cstdint>

class Sheet;

class Samples {
public:
    static constexpr int32_t kWidthPx = 240;
    static constexpr int32_t kBarPx = 32;

    /// @param medium, small  ids of the fonts
    Samples(int32_t medium, int32_t small);

    /// Paints soft keys, an effect's name, help and a message; returns the row below them.
    int32_t paintLanguage(Sheet& sheet, int32_t x, int32_t y, int32_t language);

    /// Paints the name over the picture.
    void paintHeader(Sheet& sheet, int32_t x, int32_t y, int32_t name);

    /// Paints a soft-key bar (32 rows); Res::Null leaves a key empty.
    void paintBar(Sheet& sheet, int32_t x, int32_t y, int32_t left, int32_t middle, int32_t right);

    /// Paints a message in its box, at the top left corner; returns the row below it.
    int32_t paintMessage(Sheet& sheet, int32_t x, int32_t y, int32_t text, int32_t font);

private:
    void
    label(Sheet& sheet, int32_t text, int32_t font, int32_t anchor, int32_t x, int32_t y) const;

    int32_t medium;
    int32_t small;
    PaStretcher bar;
    PaStretcher box;
};
