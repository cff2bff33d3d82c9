// SPDX-License-Identifier: MIT
#include "State.h"

#include "Orm.h"

#include <cassert>

State* State::currState;

void State::setState(State* next, bool dropKeys, bool dropUpdates) {
    if (currState != nullptr) {
        // First, because what onExit schedules is not for the old screen.
        Orm::unregisterListener(currState);
        currState->onExit();
    }
    if (dropKeys) {
        dropKeyEvents();
    }
    if (dropUpdates) {
        Orm::unschedule(Orm::EV_T_UPDATE, nullptr);
    }
    assert(next != nullptr);
    currState = next;
    Orm::registerListener(next);
    next->onEnter();
}

void State::dropKeyEvents() {
    Orm::unschedule(Orm::EV_T_KEY_PRESS, nullptr);
    Orm::unschedule(Orm::EV_T_KEY_RELEASE, nullptr);
}
