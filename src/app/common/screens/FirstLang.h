// The first start: the user picks a language, and every text follows the focus at once.
#pragma once

#include "State.h"

class FirstLang : public State {
public:
    void onEnter() override;

    void onExit() override {}

    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

    static void static_ctor() {}

    static void static_dtor() {}
};
