// SPDX-License-Identifier: MIT
// Lets the event thread sleep until SDL has an event, wake() is called, or a time is reached.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

class EventWait {
public:
    static constexpr int64_t kForever = -1;

    // How often a driver that cannot wait is checked. If it were longer, keys would be noticed
    // late; if shorter, an idle program would wake up more often.
    static constexpr int64_t kLookMs = 10;

    /// Sleeps for at most ms milliseconds. Returns how many passed.
    using Nap = std::function<int64_t(int64_t ms)>;

    EventWait();

    /// @param nap  takes the place of the real sleep between two looks
    explicit EventWait(Nap nap);

    EventWait(const EventWait&) = delete;
    EventWait& operator=(const EventWait&) = delete;

    ~EventWait() { end(); }

    /// Call it once, when SDL's video runs. After that wake() works.
    void begin();

    /// After this wake() does nothing, and SDL may be shut down.
    void end();

    /// Sleeps until there is an event in SDL's queue, or ms have passed; the event stays in the
    /// queue. Returns at once if wake() was called since the last listen().
    /// @param ms  greater than 0, or kForever
    void wait(int64_t ms);

    /// Ends the current wait, or the next one. Called on any thread.
    void wake();

    /// Call it before looking for the things that wake() announces. A wake() after this ends the
    /// next wait(), even if its event is taken out of SDL's queue before.
    void listen();

private:
    int64_t nap(int64_t ms);
    void look(int64_t ms);
    bool isWoken();

    bool driverWaits = false;
    Nap doNap;

    std::mutex mutex;  // protects the two fields that follow
    std::condition_variable waking;
    uint32_t wakingEvent = 0;  // 0: the program cannot be woken
    bool woken = false;        // since the last call of listen()
};
