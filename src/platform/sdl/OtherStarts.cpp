// SPDX-License-Identifier: MIT
#include "OtherStarts.h"

#include <utility>

OtherStarts::OtherStarts(std::function<void()> wake)
    : wake(std::move(wake)) {}

OtherStarts::~OtherStarts() {
    end();
}

/// Waits until the event thread has delivered it. False if this program ends before that.
bool OtherStarts::add(const std::string& file) {
    std::unique_lock<std::mutex> lock(mutex);
    isAsked = true;
    asked = file;
    lock.unlock();
    wake();
    lock.lock();
    changed.wait(lock, [this] { return !isAsked || isEnded; });
    return !isAsked;
}

void OtherStarts::deliver(SdlWindow& window, SdlDoors& doors) {
    std::string file;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!std::exchange(isAsked, false)) {
            return;
        }
        file = asked;
    }
    changed.notify_all();
    window.raise();
    if (file == StartSocket::kLastTake) {
        doors.bringBackFromOutside();
    } else if (!file.empty()) {
        doors.useFile(file);
    }
}

void OtherStarts::end() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isEnded = true;
    }
    changed.notify_all();
    socket.close();
}
