// SPDX-License-Identifier: MIT
// Plays the processed take while the wheels turn.
#pragma once

#include "Screen.h"

class Playing : public Screen {
public:
    void onEnter() override;
    void onExit() override;
    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

private:
    static void paintScene();
    void animate();

    int32_t startMs = 0;
    [[maybe_unused]] int32_t markMs = 0;  // as Recording has; nothing is marked while playing
    int32_t frame = 0;                    // of the wheels, which go on from where they stood
};
