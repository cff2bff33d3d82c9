// Ready to record: the microphone is prepared, and waits for the word.
#pragma once

#include "State.h"

class Record : public State {
public:
    void onEnter() override;

    void onExit() override {}

    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

    static void static_ctor() {}

    static void static_dtor() {}

private:
    static void giveUpTake();
};
