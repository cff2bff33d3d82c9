// The processed take is heard, and the wheels turn.
#pragma once

#include "State.h"

class Playing : public State {
public:
    void onEnter() override;
    void onExit() override;
    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

    static void static_ctor() {}

    static void static_dtor() {}

private:
    static void paintScene();
    void animate();

    int32_t startMs = 0;
    [[maybe_unused]] int32_t markMs = 0;  // as Recording has; nothing is marked while playing
    int32_t frame = 0;                    // of the wheels, which go on from where they stood
};
