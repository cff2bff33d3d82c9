// SPDX-License-Identifier: MIT
#include "BackgroundWork.h"

#include <chrono>
#include <thread>
#include <utility>

namespace {

constexpr int64_t kLookMs = 5;

}  // namespace

BackgroundWork::BackgroundWork(Wake wake)
    : shared(std::make_shared<Shared>()) {
    shared->wake = std::move(wake);
}

BackgroundWork::~BackgroundWork() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->wake = nullptr;
}

void BackgroundWork::start(Work work) {
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->pieces++;
    }
    std::thread([work = std::move(work), shared = shared] {
        Result result = work();
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->results.push_back(std::move(result));
        if (shared->wake) {
            shared->wake();
        }
    }).detach();
}

bool BackgroundWork::deliver() {
    bool delivered = false;
    while (!delivered) {
        Result result;
        {
            const std::lock_guard<std::mutex> lock(shared->mutex);
            if (shared->results.empty()) {
                return false;
            }
            result = std::move(shared->results.front());
            shared->results.pop_front();
            shared->pieces--;
        }
        delivered = result();
    }
    return delivered;
}

bool BackgroundWork::isBusy() {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    return shared->pieces > 0;
}

bool BackgroundWork::finish(int64_t ms) {
    for (int64_t passedMs = 0; passedMs < ms && isBusy(); passedMs += kLookMs) {
        deliver();
        std::this_thread::sleep_for(std::chrono::milliseconds(kLookMs));
    }
    deliver();
    return !isBusy();
}
