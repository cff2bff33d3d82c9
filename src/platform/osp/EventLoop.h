// SPDX-License-Identifier: MIT
// Runs an application on the host: passes the host's callbacks to it, and delivers user events when
// they are due.
//
// A host that owns its loop calls run(). One that does not, as in a browser, calls begin(), then
// step() whenever it has something to deliver or a due time has come, and end() once step() has
// returned false.
#pragma once

#include "Host.h"
#include "OspApp.h"

namespace Osp::App {

class EventLoop : private HostListener {
public:
    /// @param application  not owned
    explicit EventLoop(Application& application);
    ~EventLoop() override;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Initialises the application and brings it to the foreground. False if it cannot be
    /// initialised: then step() and end() must not be called.
    bool begin();

    /// Delivers at most one callback of the host, then the user event if it is due. In this order a
    /// user event queued before a pause is used up before the callback that ends the pause queues
    /// another.
    /// @returns false once the application has ended
    bool step();

    /// Lets the application clean up.
    void end();

    /// begin(), step() until it returns false, and end().
    result run();

    void queueUserEvent(RequestId requestId);

    void terminate() { ended = true; }

    AppRegistry registry;
    Osp::Ui::Controls::Frame frame;

private:
    int64_t longestWait();

    void onTouch(Touch touch, int32_t x, int32_t y) override;
    void onVolumeKey(bool up) override;

    void onForeground() override { application.OnForeground(); }

    void onBackground() override { application.OnBackground(); }

    void onScreenOff() override;
    void onScreenOn() override;
    void onTerminate() override;

    Application& application;
    RequestId queuedRequest = 0;
    bool queued = false;  // a user event is waiting
    // A callback came since the last user event: the next one is due at once.
    bool calledBack = false;
    bool ended = false;
    bool endedFromOutside = false;
};

}  // namespace Osp::App
