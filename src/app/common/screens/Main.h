// SPDX-License-Identifier: MIT
// The background of every screen: the recorder, and the current effect's creature in front of it.
#pragma once

#include "ClassLife.h"

class Bounded;
class PixProps;

class Main : public ClassLife {
public:
    /// A whole picture is painted over everything: menu, bar, message and progress window are no
    /// longer on the screen until each is painted again.
    static void coverFurniture();

    /// Without a clip: paints the whole screen, and covers everything that was there.
    static void paintBg();
    static void paintBg(Bounded* clip, PixProps* props);

    /// Within the clip.
    static void paintBgAndFx(Bounded* clip);
    static void paintBgAndFx();
};
