// SPDX-License-Identifier: MIT
#include "GnoObject.h"

#include "Arithmetic.h"
#include "OspBase.h"
#include "System.h"
#include "Vector.h"

using Osp::Base::String;
using Osp::Base::Runtime::Thread;

int32_t GnoObject::hashCode() {
    return static_cast<int32_t>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(this)));
}

bool GnoObject::equals(GnoObject* other) {
    return this == other;
}

String* GnoObject::toString() {
    return new String("object");
}

GnoObject::~GnoObject() {
    delete waiters;
}

void GnoObject::startWaiting() {
    waiting = true;
    if (waiters == nullptr) {
        waiters = new Vector();
    }
    waiters->addElement(this);
}

void GnoObject::wait() {
    startWaiting();
    while (waiting) {
        Thread::Yield();
    }
}

void GnoObject::wait(int32_t timeoutMs) {
    startWaiting();
    const int32_t start = System::currentTimeMillis();
    while (waiting) {
        if (wrapSub(System::currentTimeMillis(), start) > timeoutMs) {
            waiting = false;
            waiters->removeElement(this);
            return;
        }
        Thread::Yield();
    }
}

void GnoObject::notify() {
    if (waiters == nullptr || waiters->isEmpty()) {
        return;
    }
    GnoObject* longestWaiting = waiters->elementAt(0);
    waiters->removeElementAt(0);
    longestWaiting->waiting = false;
}
