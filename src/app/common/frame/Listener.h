// SPDX-License-Identifier: MIT
// Receives the events whose names it subscribes to, while it is registered with the scheduler.
#pragma once

#include "GnoObject.h"

class Event;

class Listener : public GnoObject {
public:
    /// Receives an event. May schedule, unschedule, register, unregister and pause.
    /// @param event  lives only during the call
    virtual void onEvent(Event* event) = 0;

    /// A counted array of name objects, not the caller's to free; null subscribes to nothing.
    virtual Osp::Base::String** getSubscriptions() = 0;
};
