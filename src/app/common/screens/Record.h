// Ready to record: the microphone is prepared, and waits for the word.
#pragma once

#include "Screen.h"

class Record : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    static void giveUpTake();
};
