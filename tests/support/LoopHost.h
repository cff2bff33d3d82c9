// SPDX-License-Identifier: MIT
// A host for the real loop: carries out the next step of the test whenever nothing is due, and lets
// time pass between the steps.
#pragma once

#include "TestHost.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <utility>

class LoopHost : public TestHost {
public:
    /// Returns true if it delivered a callback, as Host::pump does.
    using Step = std::function<bool(HostListener&)>;

    /// Adds a step that delivers a callback of the platform.
    void callback(std::function<void(HostListener&)> deliver) {
        steps.emplace_back([deliver = std::move(deliver)](HostListener& listener) {
            deliver(listener);
            return true;
        });
    }

    /// Adds a step that checks or changes something without a callback.
    void check(std::function<void()> look) {
        steps.emplace_back([look = std::move(look)](HostListener&) {
            look();
            return false;
        });
    }

    /// Adds a step that lets time pass; what becomes due is delivered.
    void wait(int64_t ms) {
        check([this, ms] { waitEndMs = nowMs + ms; });
    }

    bool pump(HostListener& listener, int64_t timeoutMs) override {
        lastTimeoutMs = timeoutMs;
        if (timeoutMs == 0) {
            return false;
        }
        if (nowMs < waitEndMs) {
            sleeps++;
            const bool dueBefore = timeoutMs > 0 && timeoutMs < waitEndMs - nowMs;
            nowMs = dueBefore ? nowMs + timeoutMs : waitEndMs;
            return false;
        }
        if (steps.empty()) {
            listener.onTerminate();
            return true;
        }
        const Step step = steps.front();
        steps.pop_front();
        return step(listener);
    }

    void frameShown(HostFrame* newest) override {
        frame = newest;
        framesShown += newest != nullptr ? 1 : 0;
    }

    void setDoors(HostDoors* offered) override { doors = offered; }

    /// Unlike TestHost, does not advance the clock: it stands still while the application works.
    void yielded() override { yields++; }

    int64_t lastTimeoutMs = 0;  // of the last pump()
    int32_t framesShown = 0;
    int32_t sleeps = 0;
    int32_t yields = 0;
    HostFrame* frame = nullptr;
    HostDoors* doors = nullptr;

private:
    std::deque<Step> steps;
    int64_t waitEndMs = 0;
};
