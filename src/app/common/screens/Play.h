// The choice of the effect: left and right turn to the next one, "Play" lets it be heard.
#pragma once

#include "State.h"

class Play : public State {
public:
    void onEnter() override;

    void onExit() override {}

    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

    static void static_ctor() {}

    static void static_dtor() {}

private:
    static void paintAll();
    static void turn(bool left);
    static void slide();
    static void touch(Event* event);
    void play();
};
