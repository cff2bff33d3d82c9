// What most screens have in common: they hear of keys, touches and updates, and have nothing to do
// when they are left.
#pragma once

#include "State.h"

class Screen : public State {
public:
    void onExit() override {}

    Osp::Base::String** getSubscriptions() override;

    // Those of State are not for each screen to run.
    using ClassLife::static_ctor;
    using ClassLife::static_dtor;
};
