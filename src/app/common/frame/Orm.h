// SPDX-License-Identifier: MIT
// The scheduler: the pending events in time order, and the listeners. All of the program's logic is
// called from here.
//
// Event names are identities: one string object for each name, made by the class initialiser here
// or by G, and compared by address. Two string objects with equal text are different names.
#pragma once

#include <cstdint>

class AppImage;
class Bounded;
class Bounds;
class Event;
class GnoObject;
class InputStream;
class Listener;
class OrmCanvas;
class OrmMidlet;
class Vector;

namespace Osp::Base {
class String;
}

class Orm {
public:
    using String = Osp::Base::String;

    /// Schedules an event to be delivered delayMs from now, after every event that is due at the
    /// same time.
    /// @param payload  not owned
    static void schedEvent(String* type, String* subType, GnoObject* payload, int32_t delayMs);

    /// Removes every pending event of that type and, unless subType is null, of that sub-type.
    static void unschedule(String* type, String* subType);

    /// Registers a listener at the end of the list, unless it is registered already. Not owned.
    static void registerListener(Listener* listener);
    static void unregisterListener(Listener* listener);

    /// Chooses the listeners that receive events of that type: in the order of registration, by
    /// their present subscriptions.
    static void setReceivers(String* type);

    /// Delivers to the receivers chosen last. What a handler registers or chooses meanwhile does
    /// not change this list.
    static void deliverToReceivers(Event* event);

    /// Delivers "SysPause" or "SysResume" at once; at a resume, pending events keep their remaining
    /// delay.
    static void setPaused(bool pause);

    static bool isPaused() { return paused; }

    /// After this every tick delivers "SysDispose"; it cannot be undone.
    static void dispose();

    /// Milliseconds until a tick has something to deliver; 0: now; -1: nothing is pending.
    static int64_t msUntilDue();

    /// Asks for a repaint. Not needed: each frame shows every changed row.
    static void flush();
    static void flush(int32_t x, int32_t y, int32_t w, int32_t h);

    /// @param area  null: everything
    static void flush(Bounded* area);

    /// The canvas's 240 x 320 picture, into which all screens paint.
    static AppImage* getScreen();

    static OrmMidlet* getMidlet() { return midlet; }

    /// Decodes a picture; null if it cannot be. The caller owns it, and the stream.
    static AppImage* loadImage(InputStream* in);

    /// Keeps nothing: the record store does not store anything.
    static void setPersistentMemory(String* name, signed char* data);
    static signed char* getPersistentMemory(String* name);

    /// These do nothing: a debugging hook, a dialogue that no phone showed, a loop (GEngine runs
    /// it), the file of a picture.
    static void printEvents();

    static void alertAndWait(String* /*title*/, String* /*text*/) {}

    static void mainLoop() {}

    static void dumpToFile(AppImage* /*image*/, String* /*path*/) {}

    static void static_ctor();
    static void static_dtor();

    static String* EV_T_SYS_PAUSE;
    static String* EV_T_SYS_RESUME;
    static String* EV_T_SYS_DISPOSE;
    static String* EV_T_KEY_PRESS;
    static String* EV_T_KEY_RELEASE;
    static String* EV_T_POINTER_RELEASE;
    static String* EV_T_UPDATE;

    static String* EV_ST_KEY_UP;
    static String* EV_ST_KEY_DOWN;
    static String* EV_ST_KEY_LEFT;
    static String* EV_ST_KEY_RIGHT;
    static String* EV_ST_KEY_LSK;
    static String* EV_ST_KEY_MSK;
    static String* EV_ST_KEY_RSK;

    static Event* firstEvent;  // head of what is pending, sorted by time; owned
    static Vector* listeners;  // in registration order
    static Vector* receivers;  // of the event in delivery
    static Bounds* tb;         // working space of flush
    static OrmCanvas* canvas;  // owned
    static OrmMidlet* midlet;  // set by its own constructor
    static bool paused;
    static bool isDisposed;
    static int32_t pauseMs;  // time of the last pause; after a resume, how long it was

private:
    static void insertSorted(Event* event);
    static bool subscribes(Listener* listener, const String* type);
};
