// SPDX-License-Identifier: MIT
// Turns the signals that end or suspend a program into calls, on a thread of its own that sleeps
// until one comes.
#pragma once

#include <atomic>
#include <functional>
#include <pthread.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): the system's, for sigset_t
#include <thread>

class SignalWatch {
public:
    /// Must be made before any other thread: threads inherit that these signals are blocked.
    /// @param onSignal  called on the watching thread
    explicit SignalWatch(std::function<void(int signal)> onSignal);
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;
    ~SignalWatch();

private:
    void watch();

    std::function<void(int signal)> onSignal;
    std::atomic<bool> ending{false};
    sigset_t watched{};
    sigset_t before{};
    std::thread thread;
};
