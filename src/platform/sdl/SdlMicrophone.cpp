// SPDX-License-Identifier: MIT
#include "SdlMicrophone.h"

#include <SDL.h>

#include <algorithm>
#include <deque>
#include <mutex>
#include <utility>

namespace {

// 32 ms, which may be missing at the end of a recording. A smaller number would wake the machine
// more often.
constexpr uint16_t kDeviceSamples = 512;

// If the program takes nothing, at most a minute is kept; the rest is lost.
constexpr size_t kMaxSamples = size_t{60} * HostMicrophone::kRateHz;

constexpr int64_t kSamplesPerMs = HostMicrophone::kRateHz / 1000;

}  // namespace

struct SdlMicrophone::Heard {
    std::mutex mutex;
    std::deque<int16_t> samples;
    LevelMeter meter;
    int64_t silence = 0;  // samples of silence put in place of the device's, in all
    size_t wanted = 0;    // when this many samples wait, the event thread is woken; 0: never
    bool open = true;
    bool isFromDevice = false;  // true: the device has delivered samples
    int64_t lastMs = 0;         // when the device delivered last, or was opened
    Clock nowMs;
    Wake wake;
};

SdlMicrophone::SdlMicrophone(SdlAudio& audio, std::string name, Clock nowMs, Wake wake, Tell tell)
    : audio(audio)
    , name(std::move(name))
    , nowMs(std::move(nowMs))
    , wake(std::move(wake))
    , tell(tell)
    , watch(std::move(tell)) {}

SdlMicrophone::~SdlMicrophone() {
    SdlMicrophone::stop();
}

void SdlMicrophone::choose(std::string newName) {
    name = std::move(newName);
    watch.forget();
    watch.isThere(name);
    toldAway = false;
    isReplaced = false;
}

std::string SdlMicrophone::deviceName() {
    return name.empty() || isReplaced ? audio.defaultName(SdlAudio::Kind::kMicrophone) : name;
}

bool SdlMicrophone::start(HostMicrophoneListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    heard = std::make_shared<Heard>();
    heard->wake = wake;
    heard->nowMs = nowMs;
    listener = &newListener;
    lost = false;
    unheard = {};
    silentSinceMs = DueTime::kNever;
    beginOpening();
    SdlAudio::wait(*opening, kOpeningMs);
    work();
    return true;
}

void SdlMicrophone::beginOpening() {
    SDL_AudioSpec wanted{};
    wanted.freq = kRateHz;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = kDeviceSamples;
    wanted.callback = &SdlMicrophone::onHeard;
    wanted.userdata = heard.get();
    retryMs = DueTime::kNever;
    opening = audio.openLater(name, wanted, heard, wake);
}

/// Takes the device that was opened, or looks for one again later.
void SdlMicrophone::finishOpening() {
    device = opening->take();
    if (device != 0) {
        {
            const std::lock_guard<std::mutex> lock(heard->mutex);
            heard->lastMs = nowMs();
        }
        isReplaced = opening->isFallback();
        openName = deviceName();
        if (isReplaced && !std::exchange(toldAway, true)) {
            tell({"microphoneAway", {name}});
        }
        if (const HostMessage before = std::exchange(unheard, {}); *before.row != '\0') {
            tell({"microphoneHeard", {}});
            watch.forget();  // the user was told already
        }
        if (isReplaced) {
            watch.isGone(name);
        } else {
            watch.isThere(openName);
        }
    } else {
        retryMs = nowMs() + kRetryMs;
        if (*unheard.row == '\0') {
            const std::string reason = opening->reason();
            unheard = name.empty() ? HostMessage{"noMicrophone", {reason}}
                                   : HostMessage{"microphoneUnusable", {name, reason}};
            tell(unheard);
        }
    }
    opening.reset();
}

/// One step of a recording: takes a device that was opened, tries again to open one, adds the
/// silence that is due.
void SdlMicrophone::work() {
    if (opening != nullptr && opening->isDone()) {
        finishOpening();
    }
    if (opening == nullptr && device == 0 && retryMs != DueTime::kNever && nowMs() >= retryMs) {
        beginOpening();
    }
    bool delivers = false;
    if (device != 0) {
        const std::lock_guard<std::mutex> lock(heard->mutex);
        delivers = nowMs() - heard->lastMs < kStalledMs;
    }
    if (delivers) {
        silentSinceMs = DueTime::kNever;
    } else if (silentSinceMs == DueTime::kNever) {
        silentSinceMs = nowMs();
        silenceGiven = 0;
    }
    fillSilence();
}

void SdlMicrophone::fillSilence() {
    if (silentSinceMs == DueTime::kNever) {
        return;
    }
    const std::lock_guard<std::mutex> lock(heard->mutex);
    const int64_t due = (nowMs() - silentSinceMs) * kSamplesPerMs - silenceGiven;
    silenceGiven += due;
    heard->silence += due;
    const size_t room = kMaxSamples - std::min(kMaxSamples, heard->samples.size());
    heard->samples.insert(heard->samples.end(), std::min(static_cast<size_t>(due), room), 0);
}

int64_t SdlMicrophone::dueMs() const {
    if (listener == nullptr) {
        return DueTime::kNever;
    }
    const std::lock_guard<std::mutex> lock(heard->mutex);
    if (silentSinceMs == DueTime::kNever) {
        return heard->lastMs + kStalledMs;
    }
    const int64_t wanted = listener->samplesWanted();
    if (wanted <= 0) {
        return retryMs;
    }
    const int64_t missing = wanted - static_cast<int64_t>(heard->samples.size());
    const int64_t enoughMs =
        silentSinceMs + (silenceGiven + std::max<int64_t>(missing, kSamplesPerMs)) / kSamplesPerMs +
        1;
    return retryMs == DueTime::kNever ? enoughMs : std::min(enoughMs, retryMs);
}

void SdlMicrophone::onHeard(void* heardState, uint8_t* bytes, int byteCount) {
    auto* heard = static_cast<Heard*>(heardState);
    const auto* samples = reinterpret_cast<const int16_t*>(bytes);
    const auto count = static_cast<size_t>(byteCount) / sizeof(int16_t);
    bool enough = false;
    {
        const std::lock_guard<std::mutex> lock(heard->mutex);
        if (!heard->open) {
            return;
        }
        heard->lastMs = heard->nowMs();
        heard->meter.add(samples, static_cast<int32_t>(count));
        if (heard->samples.size() + count > kMaxSamples) {
            return;
        }
        heard->isFromDevice = true;
        heard->samples.insert(heard->samples.end(), samples, samples + count);
        enough = heard->wanted > 0 && heard->samples.size() >= heard->wanted;
        if (enough) {
            heard->wanted = 0;
        }
    }
    if (enough) {
        heard->wake();
    }
}

bool SdlMicrophone::deliver() {
    if (listener == nullptr) {
        return false;
    }
    work();
    const auto wanted = static_cast<size_t>(std::max(listener->samplesWanted(), 0));
    {
        const std::lock_guard<std::mutex> lock(heard->mutex);
        if (wanted == 0 || heard->samples.size() < wanted) {
            heard->wanted = wanted;
            return false;
        }
    }
    listener->onSamples();
    return true;
}

bool SdlMicrophone::hasHeard() const {
    if (heard == nullptr) {
        return false;
    }
    const std::lock_guard<std::mutex> lock(heard->mutex);
    return heard->isFromDevice;
}

bool SdlMicrophone::lose(uint32_t lostDevice) {
    HostMicrophoneListener* const losing = listener;
    if (losing == nullptr || lostDevice != device || !SdlAudio::isLost(device)) {
        return false;
    }
    if (!hasHeard()) {
        closeDevice();
        retryMs = nowMs();
        return false;
    }
    watch.isGone(openName);
    listenNoMore();
    lost = true;
    losing->onDeviceLost();
    return true;
}

void SdlMicrophone::listed(const std::vector<std::string>& names) {
    if (listener != nullptr || lost) {
        watch.listedWhileRecording(names);
    } else {
        watch.listed(names);
    }
}

void SdlMicrophone::stop() {
    lost = false;
    if (listener != nullptr) {
        fillSilence();
        listenNoMore();
    }
}

void SdlMicrophone::closeDevice() {
    if (device != 0) {
        audio.closeLater(std::exchange(device, 0), heard);
    }
}

void SdlMicrophone::listenNoMore() {
    {
        const std::lock_guard<std::mutex> lock(heard->mutex);
        heard->open = false;
    }
    listener = nullptr;
    if (opening != nullptr) {
        opening->abandon();
        device = opening->take();
        opening.reset();
    }
    closeDevice();
    retryMs = DueTime::kNever;
}

int32_t SdlMicrophone::take(int16_t* samples, int32_t count) {
    if (heard == nullptr) {
        return 0;
    }
    const std::lock_guard<std::mutex> lock(heard->mutex);
    const auto taken = static_cast<int32_t>(
        std::min(heard->samples.size(), static_cast<size_t>(std::max(count, 0))));
    std::copy_n(heard->samples.begin(), taken, samples);
    heard->samples.erase(heard->samples.begin(), heard->samples.begin() + taken);
    return taken;
}

bool SdlMicrophone::readLevel(LevelMeter::Reading& reading) {
    if (heard == nullptr) {
        return false;
    }
    const std::lock_guard<std::mutex> lock(heard->mutex);
    reading = heard->meter.read();
    reading.silentSamples = static_cast<int32_t>(heard->silence);
    return true;
}

HostMessage SdlMicrophone::whyUnheard() {
    return hasHeard() ? HostMessage() : unheard;
}
