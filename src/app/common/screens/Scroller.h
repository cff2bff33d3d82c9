// SPDX-License-Identifier: MIT
// The strip of the effects' creatures, which slides when the user changes the effect.
//
// scroll() paints three positions of a slide at once, too fast for a display to show, and chooses
// the effect. After that startSlide() and slide() show the slide to the user, one frame for each
// "Update" of the screen, without waiting; the last frame is the sharp picture. A key or a touch
// during the slide already belongs to the new effect.
#pragma once

#include <cstdint>
#include <memory>

class AppImage;
class Bounds;

class Scroller {
public:
    /// Called once, after the effects are made.
    static void init();

    /// Prepares a slide from the current effect to the one before it (left) or after it, around
    /// both ends.
    static void initScroll(bool left);

    /// Turns to the previous (left) or the next effect.
    static void scroll(bool left);

    /// Shows any effect in one slide; one before the current effect comes from the left.
    /// @param index  an effect, not the current one
    static void scrollTo(int32_t index);

    /// Paints the current effect's picture.
    static void paint(bool withBg);

    /// Paints one frame of the slide that was prepared last. @param progress 0 to 1024
    static void paint(bool withBg, int32_t progress);

    /// Begins to show the slide that scroll() has just made.
    static void startSlide(int32_t nowMs);

    /// Paints the slide's frame for the present time. @returns false once the sharp picture is
    /// painted
    static bool slide(int32_t nowMs);

    static void static_ctor();
    static void static_dtor();

    static std::unique_ptr<Bounds> bounds;  // the strip on the screen
    static int32_t scrollImgId;             // the two pictures, each pixel as wide as sixteen
    static bool left;                       // direction of the current slide
    static int32_t cFxIndex;                // from
    static int32_t nFxIndex;                // to
    static int32_t numFxs;

private:
    static void coverEffects();
    static void prepare(bool left, int32_t next);
    static void turn();
    static void copyPicture(int32_t fxIndex, int32_t atPx);
    static void expandRow(const AppImage* strip, int32_t row, int32_t firstColumn);
    static void paintHeader();

    static int32_t slideStartMs;
    static bool sliding;
};
