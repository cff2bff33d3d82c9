// SPDX-License-Identifier: MIT
// An event with the time at which it is due, a name, a second name and a payload; an element of the
// list of pending events.
#pragma once

#include "ClassLife.h"

#include <cstdint>

class GnoObject;

namespace Osp::Base {
class String;
}

class Event : public ClassLife {
public:
    /// Names are identities: pointers to the shared name objects of Orm and G, never compared as
    /// texts.
    /// @param payload  not owned; may be a plain word (Payload.h)
    /// @param time     ms on the clock of System::currentTimeMillis()
    Event(Osp::Base::String* type, Osp::Base::String* subType, GnoObject* payload, int32_t time);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    virtual ~Event();

    virtual void insertBeforeMe(Event* event);

    /// Call it only on the last event of the list: the link back of a successor is not corrected.
    virtual void insertAfterMe(Event* event);

    /// Removes this event from the list. Before detaching the first event, the caller must move the
    /// list's head to the next one.
    virtual void detachMe();

    /// A new string to be read by people; the caller deletes it.
    virtual Osp::Base::String* toString();

    Osp::Base::String* type = nullptr;
    Osp::Base::String* subType = nullptr;  // null: none
    GnoObject* payload = nullptr;
    int32_t time = 0;
    Event* prev = nullptr;
    Event* next = nullptr;

private:
    void dynamic_ctor();
    void dynamic_dtor();
};
