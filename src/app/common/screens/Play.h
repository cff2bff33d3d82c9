// SPDX-License-Identifier: MIT
// The choice of the effect: left and right turn to another one, "Play" plays it.
#pragma once

#include "Screen.h"

class Play : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;

    /// Turns to any effect, as left and right turn to the next one; only while this screen is
    /// current.
    static void show(int32_t index);

private:
    static void paintAll();
    static void turn(bool left);
    static void beginTurn();
    static void endTurn();
    static void slide();
    static void touch(Event* event);
    void play();
};
