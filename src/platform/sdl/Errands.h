// SPDX-License-Identifier: MIT
// Work that may take long, on threads of its own: reading a file from a slow disk, waiting for a
// dialog. What comes of it is dealt with on the event thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class Errands {
public:
    using Wake = std::function<void()>;

    /// Runs on the event thread. Returns whether it delivered a callback.
    using Result = std::function<bool()>;

    /// Runs on a thread of its own, and may never end.
    using Work = std::function<Result()>;

    /// @param wake  rouses the event thread; called on other threads
    explicit Errands(Wake wake);
    Errands(const Errands&) = delete;
    Errands& operator=(const Errands&) = delete;

    /// Results that still come are dropped.
    ~Errands();

    void start(Work work);

    /// Deals with what has come, up to the first result that delivers a callback. True if one did.
    bool deliver();

    /// True while there is work whose result was not dealt with.
    bool isBusy();

    /// Waits for the work that goes on, for at most so long, and deals with what comes of it. False
    /// if something still goes on.
    bool finish(int64_t ms);

private:
    struct Shared {
        std::mutex mutex;
        std::deque<Result> results;
        Wake wake;  // empty once there is no one to rouse
        int pieces = 0;
    };

    std::shared_ptr<Shared> shared;
};
