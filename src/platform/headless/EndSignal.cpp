// SPDX-License-Identifier: MIT
#include "EndSignal.h"

namespace {

volatile sig_atomic_t firstSignal = 0;

void note(int signal) {
    if (firstSignal == 0) {
        firstSignal = signal;
    }
}

}  // namespace

EndSignal::EndSignal() {
    firstSignal = 0;

    struct sigaction action {};

    action.sa_handler = note;
    action.sa_flags = SA_RESTART;  // a write() that is interrupted goes on
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < kSignals.size(); i++) {
        sigaction(kSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) {  // if ignored, it stays ignored
            sigaction(kSignals[i], &action, nullptr);
        }
    }
}

EndSignal::~EndSignal() {
    for (size_t i = 0; i < kSignals.size(); i++) {
        sigaction(kSignals[i], &before[i], nullptr);
    }
}

int EndSignal::received() {
    return firstSignal;
}
