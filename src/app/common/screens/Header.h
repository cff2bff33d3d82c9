// SPDX-License-Identifier: MIT
// The band along the top of the screen: the effect's name between two arrows.
#pragma once

#include <cstdint>
#include <memory>

class Bounds;
class PixProps;

class Header {
public:
    /// Called once, after fonts and pictures are registered.
    static void init();

    /// Sets what paint() shows: the arrows, the name of the current effect, and which arrow looks
    /// pressed.
    static void set(bool showArrows, bool showFxName, bool leftPressed, bool rightPressed);

    /// @param withBg  true: paints the background picture first
    static void paint(bool withBg);

    /// Puts the arrows at the two ends of the band, where touches expect them.
    static void placeArrows();

    static void static_ctor();
    static void static_dtor();

    static std::unique_ptr<Bounds> bounds;
    static bool arrows;
    static bool fxName;
    static bool leftP;
    static bool rightP;
    static int32_t fntFxName;
    static uint32_t argb;
    static int32_t margx;
    static int32_t margyArrows;
    static int32_t margyName;
    static std::unique_ptr<PixProps> halfOp;  // of a pressed arrow
};
