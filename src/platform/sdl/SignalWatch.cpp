// SPDX-License-Identifier: MIT
#include "SignalWatch.h"

#include <utility>

namespace {

constexpr int kEndOfWatch = SIGUSR2;

bool isIgnored(int signal) {
    struct sigaction action {};

    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

SignalWatch::SignalWatch(std::function<void(int signal)> onSignal)
    : onSignal(std::move(onSignal)) {
    sigemptyset(&watched);
    for (const int signal : {SIGTERM, SIGINT, kEndOfWatch}) {
        sigaddset(&watched, signal);
    }
    // A shell without a terminal or without job control starts programs with these two signals
    // ignored.
    for (const int signal : {SIGHUP, SIGTSTP}) {
        if (!isIgnored(signal)) {
            sigaddset(&watched, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &watched, &before);
    thread = std::thread(&SignalWatch::watch, this);
}

SignalWatch::~SignalWatch() {
    ending = true;
    pthread_kill(thread.native_handle(), kEndOfWatch);
    thread.join();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void SignalWatch::watch() {
    while (!ending) {
        const int signal = sigwaitinfo(&watched, nullptr);
        if (signal >= 0 && signal != kEndOfWatch) {
            onSignal(signal);
        }
    }
}
