// SPDX-License-Identifier: MIT
// The screen before a recording: prepares the microphone, and lets the user start.
#pragma once

#include "Screen.h"

class Record : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    static void giveUpTake();
};
