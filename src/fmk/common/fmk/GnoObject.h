// SPDX-License-Identifier: MIT
// Root of the runtime's classes: identity, a text form, and waiting until another object notifies.
#pragma once

#include "ClassLife.h"

#include <cstdint>

namespace Osp::Base {
class String;
}
class Vector;

class GnoObject : public ClassLife {
public:
    GnoObject() = default;
    GnoObject(const GnoObject&) = delete;
    GnoObject& operator=(const GnoObject&) = delete;

    /// The low 32 bits of the object's address.
    virtual int32_t hashCode();

    /// Compares addresses; value classes override it to compare values.
    virtual bool equals(GnoObject* other);

    /// A new string; the caller deletes it.
    virtual Osp::Base::String* toString();

    virtual ~GnoObject();

    /// Yields until notify() is called on this object. Meanwhile nothing of the program runs.
    void wait();

    /// Like wait(), but ends once more than timeoutMs milliseconds have passed.
    void wait(int32_t timeoutMs);

    /// Wakes the object that has waited longest on this one, if any.
    void notify();

    /// Does nothing: at most one object ever waits.
    void notifyAll() {}

private:
    void startWaiting();

    Vector* waiters = nullptr;  // made by the first wait, owned
    bool waiting = false;
};
