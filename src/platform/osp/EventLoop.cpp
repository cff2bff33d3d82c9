// SPDX-License-Identifier: MIT
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

bool EventLoop::begin() {
    registry.Open(Host::current().folders().config);
    if (!application.OnAppInitializing(registry)) {
        return false;
    }
    application.OnForeground();
    calledBack = true;
    return true;
}

void EventLoop::end() {
    application.OnAppTerminating(registry, endedFromOutside);
}

result EventLoop::run() {
    if (!begin()) {
        return E_FAILURE;
    }
    while (step()) {
    }
    end();
    return E_SUCCESS;
}

void EventLoop::queueUserEvent(RequestId requestId) {
    queuedRequest = requestId;
    queued = true;
}

bool EventLoop::step() {
    if (ended) {
        return false;
    }
    if (Host::current().pump(*this, longestWait())) {
        calledBack = true;
    }
    const bool due = queued && (calledBack || application.TimeUntilDue() == 0);
    if (!ended && due) {
        queued = false;
        calledBack = false;
        application.OnUserEventReceivedN(queuedRequest, nullptr);
    }
    return !ended;
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
