// SPDX-License-Identifier: MIT
#include "FileMicrophone.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t kSamplesPerMs = HostMicrophone::kRateHz / 1000;

}  // namespace

FileMicrophone::FileMicrophone(Clock nowMs)
    : nowMs(std::move(nowMs)) {}

int64_t FileMicrophone::dueMs() const {
    const int64_t wanted = listener != nullptr ? listener->samplesWanted() : 0;
    if (wanted <= 0) {
        return DueTime::kNever;
    }
    return startMs + (taken + wanted + kSamplesPerMs - 1) / kSamplesPerMs;
}

bool FileMicrophone::deliver() {
    const int64_t due = dueMs();
    if (due == DueTime::kNever || due > nowMs()) {
        return false;
    }
    forgetOldest();
    listener->onSamples();
    return true;
}

bool FileMicrophone::start(HostMicrophoneListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    listener = &newListener;
    lost = false;
    hearing = voice;
    startMs = nowMs();
    taken = 0;
    meter.begin();
    metered = 0;
    return true;
}

void FileMicrophone::stop() {
    lost = false;
    if (listener != nullptr) {
        listenNoMore();
    }
}

bool FileMicrophone::lose() {
    HostMicrophoneListener* const losing = listener;
    if (losing == nullptr) {
        return false;
    }
    listenNoMore();
    lost = true;
    losing->onDeviceLost();
    return true;
}

void FileMicrophone::listenNoMore() {
    forgetOldest();
    heardAtStop = heard();
    listener = nullptr;
}

int64_t FileMicrophone::heard() const {
    return listener != nullptr ? (nowMs() - startMs) * kSamplesPerMs : heardAtStop;
}

/// Drops the oldest samples if the program has taken none for longer than kMaxWaitingMs.
void FileMicrophone::forgetOldest() {
    const int64_t tooMuchMs = nowMs() - startMs - taken / kSamplesPerMs - kMaxWaitingMs;
    startMs += std::max<int64_t>(tooMuchMs, 0);
}

int32_t FileMicrophone::take(int16_t* samples, int32_t count) {
    const auto ready =
        static_cast<int32_t>(std::clamp<int64_t>(heard() - taken, 0, std::max(count, 0)));
    const auto size = static_cast<int64_t>(hearing.size());
    const int64_t from = std::min(taken, size);
    const int64_t fromVoice = std::min<int64_t>(ready, size - from);
    std::copy_n(hearing.begin() + from, fromVoice, samples);
    std::fill(samples + fromVoice, samples + ready, int16_t{0});
    taken += ready;
    return ready;
}

bool FileMicrophone::readLevel(LevelMeter::Reading& reading) {
    const auto size = static_cast<int64_t>(hearing.size());
    for (const int64_t end = heard(); metered < end; metered++) {
        const int16_t sample = metered < size ? hearing[static_cast<size_t>(metered)] : int16_t{0};
        meter.add(&sample, 1);
    }
    reading = meter.read();
    return true;
}
