// SPDX-License-Identifier: MIT
// Receives the events whose names it subscribes to, while it is registered with the scheduler.
#pragma once

#include "GnoObject.h"

class Event;

class Listener : public GnoObject {
public:
    /// Receives an event. May schedule, unschedule, register, unregister and pause.
    /// @param event  valid only during the call
    virtual void onEvent(Event* event) = 0;

    /// The names of the events, in a counted array that the caller must not free; null: no events.
    virtual Osp::Base::String** getSubscriptions() = 0;
};
