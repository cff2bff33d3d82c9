// The choice of the effect: left and right turn to the next one, "Play" lets it be heard.
#pragma once

#include "Screen.h"

class Play : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    static void paintAll();
    static void turn(bool left);
    static void slide();
    static void touch(Event* event);
    void play();
};
