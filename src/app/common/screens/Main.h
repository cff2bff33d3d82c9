// SPDX-License-Identifier: MIT
// The background of every screen: the recorder, and the current effect's creature in front of it.
#pragma once

#include "ClassLife.h"

class Bounded;
class PixProps;

class Main : public ClassLife {
public:
    /// Call it when a whole picture is painted over everything: menu, bar, message and progress
    /// window then count as not visible until each is painted again.
    static void coverFurniture();

    /// Paints the whole screen (see coverFurniture()).
    static void paintBg();
    static void paintBg(Bounded* clip, PixProps* props);

    /// Paints only within the clip.
    static void paintBgAndFx(Bounded* clip);
    static void paintBgAndFx();
};
