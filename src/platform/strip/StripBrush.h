// SPDX-License-Identifier: MIT
// Draws shapes and texts on a picture, for the strip.
#pragma once

#include "ScreenTexts.h"

#include <cstdint>
#include <string>

class AppImage;
class BitMapFont;

class StripBrush {
public:
    /// @param image  painted on; not owned
    explicit StripBrush(AppImage& image)
        : image(image) {}

    /// Fills a rectangle, cut to the picture.
    /// @param argb  not premultiplied
    void fill(const ScreenPlace& place, uint32_t argb);

    /// A filled rectangle whose corners are cut off by two pixels.
    void fillRounded(const ScreenPlace& place, uint32_t argb);

    /// The edge of such a rectangle, one pixel wide.
    void frameRounded(const ScreenPlace& place, uint32_t argb);

    /// Fills a rectangle with a fade from one colour at the top to another at the bottom; both must
    /// be opaque.
    void fade(const ScreenPlace& place, uint32_t top, uint32_t bottom);

    /// Paints one cell of a row of pictures of equal size, cut to the picture painted on.
    /// @param row      null: nothing is painted
    /// @param cells    how many it has
    /// @param opacity  0 to 256
    void cell(AppImage* row, int32_t cells, int32_t index, int32_t x, int32_t y, int32_t opacity);

    /// Paints text with its leftmost ink at x and the top of its line at y.
    /// @param font  null: nothing is painted
    void text(BitMapFont* font, const std::string& utf8, int32_t x, int32_t y, uint32_t argb);

    /// Paints text centred between x and x + w.
    void textInMiddle(
        BitMapFont* font, const std::string& utf8, int32_t x, int32_t w, int32_t y, uint32_t argb);

    /// Width of the text's ink; 0 without a font.
    static int32_t widthOf(BitMapFont* font, const std::string& utf8);

private:
    AppImage& image;
};
