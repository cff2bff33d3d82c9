#include "SignalWatch.h"

#include <ctime>
#include <utility>

namespace {

constexpr int kEndOfWatch = SIGUSR2;
constexpr timespec kReminderAfter = {0, 50000000};

bool isIgnored(int signal) {
    struct sigaction action {};

    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

SignalWatch::SignalWatch(std::function<void(int signal)> onSignal, std::function<bool()> remind)
    : onSignal(std::move(onSignal))
    , remind(std::move(remind)) {
    sigemptyset(&watched);
    for (const int signal : {SIGTERM, SIGINT, kEndOfWatch}) {
        sigaddset(&watched, signal);
    }
    // Whoever starts a program without a terminal, or without job control, wants these ignored.
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
    bool reminding = false;
    while (!ending) {
        const int signal = reminding ? sigtimedwait(&watched, nullptr, &kReminderAfter)
                                     : sigwaitinfo(&watched, nullptr);
        if (signal < 0) {
            reminding = reminding && remind();
        } else if (signal != kEndOfWatch) {
            onSignal(signal);
            reminding = true;
        }
    }
}
