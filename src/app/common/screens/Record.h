// SPDX-License-Identifier: MIT
// Ready to record: the microphone is prepared, and the user starts the recording.
#pragma once

#include "Screen.h"

class Record : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    static void giveUpTake();
};
