// SPDX-License-Identifier: MIT
#include "OtherStarts.h"

#include <utility>

OtherStarts::OtherStarts(std::function<void()> wake)
    : wake(std::move(wake)) {}

void OtherStarts::add(const std::string& file) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isAsked = true;
        if (!file.empty()) {
            files.push_back(file);
        }
    }
    wake();
}

void OtherStarts::deliver(SdlWindow& window, SdlDoors& doors) {
    std::vector<std::string> given;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!std::exchange(isAsked, false)) {
            return;
        }
        given.swap(files);
    }
    window.raise();
    for (const std::string& file : given) {
        doors.useFile(file);
    }
}
