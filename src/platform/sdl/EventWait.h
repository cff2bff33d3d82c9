// How the event thread sleeps: until SDL has an event, the program is roused, or a time has come.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

class EventWait {
public:
    static constexpr int64_t kForever = -1;

    // How often a driver that cannot wait is looked at. Longer, and a key is felt late; shorter,
    // and an idle program wakes up more often.
    static constexpr int64_t kLookMs = 10;

    /// Sleeps for at most ms milliseconds. Returns how many passed.
    using Nap = std::function<int64_t(int64_t ms)>;

    EventWait();

    /// @param nap  takes the place of the real sleep between two looks
    explicit EventWait(Nap nap);

    EventWait(const EventWait&) = delete;
    EventWait& operator=(const EventWait&) = delete;

    /// Once, when SDL's video runs: from then on the program can be roused.
    void begin();

    /// Rouses no more: SDL may be shut down.
    void end() { rousingEvent = 0; }

    /// Sleeps until there is an event in SDL's queue, which stays there, or ms have passed.
    /// @param ms  greater than 0, or kForever
    void wait(int64_t ms);

    /// Ends the current wait, or the next one. Called on any thread.
    void rouse();

private:
    int64_t nap(int64_t ms);
    void look(int64_t ms);

    std::atomic<uint32_t> rousingEvent{0};
    bool driverWaits = false;
    std::mutex mutex;
    std::condition_variable rousing;
    bool roused = false;
    Nap doNap;
};
