#include "SdlMicrophone.h"

#include <SDL.h>

#include <algorithm>
#include <deque>
#include <mutex>
#include <utility>

namespace {

// 32 ms: what may be missing of a word at the stop. Less costs wake-ups.
constexpr uint16_t kDeviceSamples = 512;

// What a program that takes nothing lets pile up: a minute, then the rest is lost.
constexpr size_t kMaxSamples = size_t{60} * HostMicrophone::kRateHz;

}  // namespace

struct SdlMicrophone::Heard {
    std::mutex mutex;
    std::deque<int16_t> samples;
    LevelMeter meter;
    size_t wanted = 0;  // the event thread is roused when as many wait; 0: let it sleep
    bool open = true;
    Wake wake;
};

SdlMicrophone::SdlMicrophone(SdlAudio& audio, std::string name, Wake wake)
    : audio(audio)
    , name(std::move(name))
    , wake(std::move(wake)) {}

SdlMicrophone::~SdlMicrophone() {
    SdlMicrophone::stop();
}

bool SdlMicrophone::isThere() {
    return audio.has(SdlAudio::Kind::kMicrophone);
}

std::string SdlMicrophone::deviceName() {
    return name.empty() ? audio.defaultName(SdlAudio::Kind::kMicrophone) : name;
}

bool SdlMicrophone::start(HostMicrophoneListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    heard = std::make_shared<Heard>();
    heard->wake = wake;
    SDL_AudioSpec wanted{};
    wanted.freq = kRateHz;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = kDeviceSamples;
    wanted.callback = &SdlMicrophone::onHeard;
    wanted.userdata = heard.get();
    device = audio.open(SdlAudio::Kind::kMicrophone, name, wanted);
    if (device == 0) {
        return false;
    }
    listener = &newListener;
    lost = false;
    return true;
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
        heard->meter.add(samples, static_cast<int32_t>(count));
        if (heard->samples.size() + count > kMaxSamples) {
            return;
        }
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

bool SdlMicrophone::lose(uint32_t lostDevice) {
    HostMicrophoneListener* const losing = listener;
    if (losing == nullptr || lostDevice != device || !SdlAudio::hasDied(device)) {
        return false;
    }
    listenNoMore();
    lost = true;
    losing->onDeviceLost();
    return true;
}

void SdlMicrophone::stop() {
    lost = false;
    if (listener != nullptr) {
        listenNoMore();
    }
}

void SdlMicrophone::listenNoMore() {
    {
        const std::lock_guard<std::mutex> lock(heard->mutex);
        heard->open = false;
    }
    listener = nullptr;
    audio.closeLater(device, heard);
    device = 0;
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
    return true;
}
