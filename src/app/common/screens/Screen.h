// SPDX-License-Identifier: MIT
// What most screens have in common: they receive keys, touches and updates, and do nothing when
// they are left.
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
