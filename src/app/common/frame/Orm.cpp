// SPDX-License-Identifier: MIT
#include "Orm.h"

#include "AppImage.h"
#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "Event.h"
#include "ImageReader.h"
#include "Listener.h"
#include "OrmCanvas.h"
#include "OspBase.h"
#include "RecordStore.h"
#include "System.h"
#include "Vector.h"

#include <memory>

using Osp::Base::String;

String* Orm::EV_T_SYS_PAUSE;
String* Orm::EV_T_SYS_RESUME;
String* Orm::EV_T_SYS_DISPOSE;
String* Orm::EV_T_KEY_PRESS;
String* Orm::EV_T_KEY_RELEASE;
String* Orm::EV_T_POINTER_RELEASE;
String* Orm::EV_T_UPDATE;
String* Orm::EV_ST_KEY_UP;
String* Orm::EV_ST_KEY_DOWN;
String* Orm::EV_ST_KEY_LEFT;
String* Orm::EV_ST_KEY_RIGHT;
String* Orm::EV_ST_KEY_LSK;
String* Orm::EV_ST_KEY_MSK;
String* Orm::EV_ST_KEY_RSK;
Event* Orm::firstEvent;
Vector* Orm::listeners;
Vector* Orm::receivers;
Bounds* Orm::tb;
OrmCanvas* Orm::canvas;
OrmMidlet* Orm::midlet;
bool Orm::paused;
bool Orm::isDisposed;
int32_t Orm::pauseMs;

void Orm::static_ctor() {
    EV_T_SYS_PAUSE = new String("SysPause");
    EV_T_SYS_RESUME = new String("SysResume");
    EV_T_SYS_DISPOSE = new String("SysDispose");
    EV_T_KEY_PRESS = new String("KeyPress");
    EV_T_KEY_RELEASE = new String("KeyRelease");
    EV_T_POINTER_RELEASE = new String("PointerRelease");
    EV_T_UPDATE = new String("Update");
    EV_ST_KEY_UP = new String("KeyUp");
    EV_ST_KEY_DOWN = new String("KeyDown");
    EV_ST_KEY_LEFT = new String("KeyLeft");
    EV_ST_KEY_RIGHT = new String("KeyRight");
    EV_ST_KEY_LSK = new String("KeyLsk");
    EV_ST_KEY_MSK = new String("KeyMsk");
    EV_ST_KEY_RSK = new String("KeyRsk");
    tb = new Bounds();
    firstEvent = nullptr;
    listeners = new Vector();
    receivers = new Vector();
    paused = false;
    isDisposed = false;
    pauseMs = 0;
    midlet = nullptr;
    canvas = new OrmCanvas();
}

void Orm::static_dtor() {
    for (String** name :
         {&EV_T_SYS_PAUSE, &EV_T_SYS_RESUME, &EV_T_SYS_DISPOSE, &EV_T_KEY_PRESS, &EV_T_KEY_RELEASE,
          &EV_T_POINTER_RELEASE, &EV_T_UPDATE, &EV_ST_KEY_UP, &EV_ST_KEY_DOWN, &EV_ST_KEY_LEFT,
          &EV_ST_KEY_RIGHT, &EV_ST_KEY_LSK, &EV_ST_KEY_MSK, &EV_ST_KEY_RSK}) {
        delete *name;
        *name = nullptr;
    }
    delete tb;
    tb = nullptr;
    for (Event* event = firstEvent; event != nullptr;) {
        Event* following = event->next;
        delete event;
        event = following;
    }
    firstEvent = nullptr;
    delete listeners;
    listeners = nullptr;
    delete receivers;
    receivers = nullptr;
    delete canvas;
    canvas = nullptr;
    midlet = nullptr;
}

void Orm::schedEvent(String* type, String* subType, GnoObject* payload, int32_t delayMs) {
    insertSorted(new Event(type, subType, payload, wrapAdd(System::currentTimeMillis(), delayMs)));
}

void Orm::insertSorted(Event* event) {
    if (firstEvent == nullptr) {
        firstEvent = event;
        return;
    }
    for (Event* current = firstEvent;; current = current->next) {
        if (timeBefore(event->time, current->time)) {
            current->insertBeforeMe(event);
            if (current == firstEvent) {
                firstEvent = event;
            }
            return;
        }
        if (current->next == nullptr) {
            current->insertAfterMe(event);
            return;
        }
    }
}

void Orm::unschedule(String* type, String* subType) {
    Event* current = firstEvent;
    while (current != nullptr) {
        Event* following = current->next;
        if (current->type == type && (subType == nullptr || current->subType == subType)) {
            if (current == firstEvent) {
                firstEvent = following;
            }
            current->detachMe();
            delete current;
        }
        current = following;
    }
}

void Orm::registerListener(Listener* listener) {
    if (!listeners->contains(listener)) {
        listeners->addElement(listener);
    }
}

void Orm::unregisterListener(Listener* listener) {
    listeners->removeElement(listener);
}

bool Orm::subscribes(Listener* listener, const String* type) {
    String** subscriptions = listener->getSubscriptions();
    for (int32_t i = length(subscriptions) - 1; i >= 0; i--) {
        if (subscriptions[i] == type) {
            return true;
        }
    }
    return false;
}

void Orm::setReceivers(String* type) {
    receivers->removeAllElements();
    for (int32_t i = 0; i < listeners->size(); i++) {
        auto* listener = static_cast<Listener*>(listeners->elementAt(i));
        if (subscribes(listener, type)) {
            receivers->addElement(listener);
        }
    }
}

void Orm::deliverToReceivers(Event* event) {
    // A copy of the list, because a handler may pause the program, which chooses other receivers.
    Vector row(receivers->size());
    for (int32_t i = 0; i < receivers->size(); i++) {
        row.addElement(receivers->elementAt(i));
    }
    for (int32_t i = 0; i < row.size(); i++) {
        static_cast<Listener*>(row.elementAt(i))->onEvent(event);
    }
}

void Orm::setPaused(bool pause) {
    if (pause == paused) {
        return;
    }
    paused = pause;
    Event sysPause(EV_T_SYS_PAUSE, nullptr, nullptr, 0);
    Event sysResume(EV_T_SYS_RESUME, nullptr, nullptr, 0);
    const int32_t now = System::currentTimeMillis();
    if (pause) {
        pauseMs = now;
        setReceivers(EV_T_SYS_PAUSE);
        deliverToReceivers(&sysPause);
        return;
    }
    const int32_t pausedForMs = wrapSub(now, pauseMs);
    pauseMs = pausedForMs;
    for (Event* event = firstEvent; event != nullptr; event = event->next) {
        event->time = wrapAdd(event->time, pausedForMs);
    }
    setReceivers(EV_T_SYS_RESUME);
    deliverToReceivers(&sysResume);
}

void Orm::dispose() {
    isDisposed = true;
    setPaused(false);
}

int64_t Orm::msUntilDue() {
    if (isDisposed) {
        return 0;
    }
    if (paused || firstEvent == nullptr) {
        return -1;
    }
    const int32_t now = System::currentTimeMillis();
    return timeBefore(now, firstEvent->time) ? wrapSub(firstEvent->time, now) : 0;
}

void Orm::flush() {
    canvas->repaint();
    canvas->serviceRepaints();
}

void Orm::flush(int32_t x, int32_t y, int32_t w, int32_t h) {
    canvas->repaint(x, y, w, h);
    canvas->serviceRepaints();
}

void Orm::flush(Bounded* area) {
    if (area == nullptr) {
        flush();
        return;
    }
    area->getBounds(tb);
    flush(tb->x, tb->y, tb->w, tb->h);
}

AppImage* Orm::getScreen() {
    return canvas->getScreen();
}

AppImage* Orm::loadImage(InputStream* in) {
    return ImageReader::read(in);
}

void Orm::setPersistentMemory(String* name, signed char* data) {
    RecordStore::deleteRecordStore(name);
    if (data == nullptr) {
        return;
    }
    const std::unique_ptr<RecordStore> store(RecordStore::openRecordStore(name, true));
    if (store != nullptr) {
        store->addRecord(data, 0, length(data));
    }
}

signed char* Orm::getPersistentMemory(String* /*name*/) {
    return nullptr;
}

void Orm::printEvents() {
    for (Event* event = firstEvent; event != nullptr; event = event->next) {
        // Empty; a place for a debugger's breakpoint.
    }
}
