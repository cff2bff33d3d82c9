// Runs one application on the host: callbacks in, user events by need.
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

    /// The application's whole life between its making and its deletion.
    result run();

    void queueUserEvent(RequestId requestId);

    void terminate() { ended = true; }

    AppRegistry registry;
    Osp::Ui::Controls::Frame frame;

private:
    static bool step(void* loop);
    void step();
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
    bool queued = false;  // a user event waits
    bool calledBack =
        false;  // a callback came since the last user event: the next one is due at once
    bool ended = false;
    bool endedFromOutside = false;
};

}  // namespace Osp::App
