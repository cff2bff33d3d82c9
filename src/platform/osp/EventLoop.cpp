#include "EventLoop.h"

using Osp::System::IScreenEventListener;

namespace Osp::App {

EventLoop::EventLoop(Application& application)
    : application(application) {
    application.loop = this;
}

EventLoop::~EventLoop() {
    application.loop = nullptr;
}

result EventLoop::run() {
    registry.Open(Host::current().folders().config);
    if (!application.OnAppInitializing(registry)) {
        return E_FAILURE;
    }
    application.OnForeground();
    calledBack = true;
    Host::current().run(&EventLoop::step, this);
    application.OnAppTerminating(registry, endedFromOutside);
    return E_SUCCESS;
}

void EventLoop::queueUserEvent(RequestId requestId) {
    queuedRequest = requestId;
    queued = true;
}

bool EventLoop::step(void* loop) {
    auto* self = static_cast<EventLoop*>(loop);
    if (!self->ended) {
        self->step();
    }
    return !self->ended;
}

/// At most one callback, then the user event if it is due: an event queued before a pause is
/// consumed before the callback that ends the pause can queue another.
void EventLoop::step() {
    if (Host::current().pump(*this, longestWait())) {
        calledBack = true;
    }
    const bool due = queued && (calledBack || application.TimeUntilDue() == 0);
    if (ended || !due) {
        return;
    }
    queued = false;
    calledBack = false;
    application.OnUserEventReceivedN(queuedRequest, nullptr);
}

int64_t EventLoop::longestWait() {
    if (!queued) {
        return -1;
    }
    return calledBack ? 0 : application.TimeUntilDue();
}

void EventLoop::onTouch(Touch touch, int32_t x, int32_t y) {
    Osp::Ui::ITouchEventListener* listener = frame.GetTouchEventListener();
    if (listener == nullptr) {
        return;
    }
    const Osp::Graphics::Point position{x, y};
    const Osp::Ui::TouchEventInfo info(position);
    switch (touch) {
    case Touch::kPress:
        listener->OnTouchPressed(frame, position, info);
        break;
    case Touch::kMove:
        listener->OnTouchMoved(frame, position, info);
        break;
    case Touch::kRelease:
        listener->OnTouchReleased(frame, position, info);
        break;
    }
}

void EventLoop::onVolumeKey(bool up) {
    Osp::Ui::IKeyEventListener* listener = frame.GetKeyEventListener();
    if (listener == nullptr) {
        return;
    }
    const Osp::Ui::KeyCode key = up ? Osp::Ui::KEY_SIDE_UP : Osp::Ui::KEY_SIDE_DOWN;
    listener->OnKeyPressed(frame, key);
    listener->OnKeyReleased(frame, key);
}

void EventLoop::onScreenOff() {
    if (auto* listener = dynamic_cast<IScreenEventListener*>(&application)) {
        listener->OnScreenOff();
    }
}

void EventLoop::onScreenOn() {
    if (auto* listener = dynamic_cast<IScreenEventListener*>(&application)) {
        listener->OnScreenOn();
    }
}

void EventLoop::onTerminate() {
    ended = true;
    endedFromOutside = true;
}

}  // namespace Osp::App
