#include "WebMicrophone.h"

#include <algorithm>

namespace {

// What a program that takes nothing lets pile up: a minute, then the rest is lost.
constexpr size_t kMaxSamples = size_t{60} * HostMicrophone::kRateHz;

}  // namespace

void WebMicrophone::prepare() {
    asked = true;
    started = false;
    page.askMicrophone(++ticket);
}

bool WebMicrophone::granted(int32_t answered) {
    const bool counts = asked && answered == ticket;
    asked = asked && !counts;
    return counts;
}

bool WebMicrophone::refused(int32_t answered) {
    return granted(answered);
}

void WebMicrophone::release() {
    asked = false;
    ticket++;  // an answer that still comes is dropped
    page.releaseMicrophone();
}

bool WebMicrophone::start(HostMicrophoneListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    listener = &newListener;
    lost = false;
    started = true;
    waiting.clear();
    taken.clear();
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
    if (listener == nullptr || waiting.size() >= kMaxSamples) {
        return false;
    }
    if (converter == nullptr || converterRateHz != rateHz) {
        converter = std::make_unique<RateTo16k>(rateHz);
        converterRateHz = rateHz;
    }
    converter->convert(samples, count, waiting);
    return hasEnough();
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
