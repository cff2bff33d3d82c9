// SPDX-License-Identifier: MIT
#include "WebMicrophone.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace {

// If the program takes nothing, at most a minute is kept; the rest is lost.
constexpr size_t kMaxSamples = size_t{60} * HostMicrophone::kRateHz;

// Samples come about 30 times a second; after a second without any, the microphone may be lost. A
// page that was busy may still have some to hand over: they come before the second look.
constexpr double kSilentMs = 1000;
constexpr double kSecondLookMs = 100;
constexpr double kEndless = std::numeric_limits<double>::infinity();

}  // namespace

void WebMicrophone::prepare() {
    asked = true;
    started = false;
    page.askMicrophone(++ticket);
}

bool WebMicrophone::granted(int32_t answered) {
    const bool counts = asked && answered == ticket;
    asked = asked && !counts;
    held = held || counts;
    return counts;
}

bool WebMicrophone::refused(int32_t answered) {
    const bool counts = granted(answered);
    held = held && !counts;
    return counts;
}

void WebMicrophone::release() {
    asked = false;
    held = false;
    ticket++;  // a late answer is dropped
    page.releaseMicrophone();
}

bool WebMicrophone::start(HostMicrophoneListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    listener = &newListener;
    lost = false;
    started = true;
    heardAny = false;
    listenAgain();
    waiting.clear();
    taken.clear();
    meter.begin();
    converter.reset();
    page.startMicrophone();
    return true;
}

void WebMicrophone::stop() {
    lost = false;
    if (listener == nullptr) {
        return;
    }
    page.stopMicrophone();
    listener = nullptr;
    if (converter != nullptr) {
        converter->finish(waiting);
    }
}

bool WebMicrophone::heard(const float* samples, int32_t count, int32_t rateHz) {
    if (listener == nullptr || waiting.size() >= kMaxSamples || !RateTo16k::takes(rateHz)) {
        return false;
    }
    heardAny = true;
    listenAgain();
    if (converter == nullptr || converterRateHz != rateHz) {
        converter = std::make_unique<RateTo16k>(rateHz);
        converterRateHz = rateHz;
    }
    const auto before = static_cast<std::ptrdiff_t>(waiting.size());
    converter->convert(samples, count, waiting);
    const std::vector<int16_t> newest(waiting.begin() + before, waiting.end());
    meter.add(newest.data(), static_cast<int32_t>(newest.size()));
    return hasEnough();
}

void WebMicrophone::listenAgain() {
    lookMs = page.nowMs() + kSilentMs;
    hasLooked = false;
}

bool WebMicrophone::fellSilent() {
    if (listener == nullptr || page.nowMs() < lookMs) {
        return false;
    }
    lookMs = hasLooked ? kEndless : page.nowMs() + kSecondLookMs;
    return std::exchange(hasLooked, true);
}

double WebMicrophone::nextLookMs() const {
    return listener != nullptr ? std::max(lookMs - page.nowMs(), 0.0) : kEndless;
}

bool WebMicrophone::hasEnough() const {
    const auto wanted = static_cast<size_t>(std::max(listener->samplesWanted(), 0));
    return wanted > 0 && waiting.size() >= wanted;
}

bool WebMicrophone::deliver() {
    if (listener == nullptr || !hasEnough()) {
        return false;
    }
    listener->onSamples();
    return true;
}

bool WebMicrophone::lose() {
    HostMicrophoneListener* const losing = listener;
    if (losing == nullptr) {
        return false;
    }
    stop();
    lost = true;
    losing->onDeviceLost();
    return true;
}

int32_t WebMicrophone::take(int16_t* samples, int32_t count) {
    const auto moved =
        static_cast<int32_t>(std::min(waiting.size(), static_cast<size_t>(std::max(count, 0))));
    std::copy_n(waiting.begin(), moved, samples);
    waiting.erase(waiting.begin(), waiting.begin() + moved);
    taken.insert(taken.end(), samples, samples + moved);
    return moved;
}
