// SPDX-License-Identifier: MIT
// Work that may take long, on threads of its own: reading a file from a slow disk, waiting for a
// dialog. Its result is handled on the event thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class BackgroundWork {
public:
    using Wake = std::function<void()>;

    /// Handles the result, on the event thread. Returns true if it delivered a callback.
    using Result = std::function<bool()>;

    /// The work, on a thread of its own; it may never end. Returns what handles its result.
    using Work = std::function<Result()>;

    /// @param wake  wakes the event thread; called on other threads
    explicit BackgroundWork(Wake wake);
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// Does not wait for work that still goes on; its results are dropped.
    ~BackgroundWork();

    void start(Work work);

    /// Handles the results that have come, up to the first one that delivers a callback. True if
    /// one did.
    bool deliver();

    /// True while there is work whose result was not handled yet.
    bool isBusy();

    /// Waits until all work is done, for at most that time, and delivers the results. False if some
    /// work still goes on.
    bool finish(int64_t ms);

private:
    struct Shared {
        std::mutex mutex;
        std::deque<Result> results;
        Wake wake;  // empty after the end: there is no event thread to wake
        int pieces = 0;
    };

    std::shared_ptr<Shared> shared;
};
