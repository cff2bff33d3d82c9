// SPDX-License-Identifier: MIT
// Base of most screens: receives keys, touches and updates, and does nothing in onExit().
#pragma once

#include "State.h"

class Screen : public State {
public:
    void onExit() override {}

    Osp::Base::String** getSubscriptions() override;

    // State's class initialiser and finaliser must not run once for each screen.
    using ClassLife::static_ctor;
    using ClassLife::static_dtor;
};
