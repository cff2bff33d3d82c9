// SPDX-License-Identifier: MIT
#include "SdlSpeaker.h"

#include <SDL.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

constexpr int64_t kMsPerSecond = 1000;

// How often the device asks for samples, roughly. If it asked less often, a stop, a new volume and
// the end of a clip would take effect later. At 16 times a second the sound stutters on a machine
// that has eight times more work than it can do.
constexpr int32_t kChunksPerSecond = 4;

constexpr int32_t kMinChunkSamples = 64;
constexpr int32_t kMaxChunkSamples = 1 << 15;  // SDL's limit: 16 bits

// The chunks between handing over samples and hearing the last of them: one that plays, one that
// waits.
constexpr int64_t kChunksUnderWay = 2;

// A device that has asked for no samples for this long after it played its last ones is lost.
constexpr int64_t kDeadAfterMs = 1500;

}  // namespace

struct SdlSpeaker::Playing {
    int64_t remainingMs() const {
        return (static_cast<int64_t>(clip->samples.size() - position)) * kMsPerSecond /
               clip->rateHz;
    }

    std::mutex mutex;
    std::shared_ptr<const HostClip> clip;
    size_t position = 0;
    int32_t volume = kFullVolume;
    bool paused = false;
    bool open = true;
    int64_t progressMs = 0;           // when samples were handed over last
    int64_t endMs = DueTime::kNever;  // when the last one was heard; kNever: not all handed over
    int64_t leftMs = 0;               // rest of a clip that is paused and has no device
    int64_t latencyMs = 0;
    Clock nowMs;
    Wake wake;
};

SdlSpeaker::SdlSpeaker(SdlAudio& audio, std::string name, Clock nowMs, Wake wake, Tell tell)
    : audio(audio)
    , name(std::move(name))
    , nowMs(std::move(nowMs))
    , wake(std::move(wake))
    , tell(std::move(tell)) {}

SdlSpeaker::~SdlSpeaker() {
    SdlSpeaker::stop();
}

bool SdlSpeaker::play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    playing = std::make_shared<Playing>();
    SDL_AudioSpec wanted{};
    wanted.freq = clip->rateHz;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = chunkSamples(clip->rateHz);
    wanted.callback = &SdlSpeaker::onWanted;
    wanted.userdata = playing.get();
    playing->clip = std::move(clip);
    playing->volume = volume;
    playing->progressMs = nowMs();
    playing->latencyMs = kChunksUnderWay * wanted.samples * kMsPerSecond / wanted.freq;
    playing->nowMs = nowMs;
    playing->wake = wake;
    device = audio.open(SdlAudio::Kind::kSpeaker, name, wanted);
    if (device == 0) {
        playUnheard();
    }
    listener = &newListener;
    return true;
}

/// Without a device the clip takes its time, unheard, and ends.
void SdlSpeaker::playUnheard() {
    playing->endMs = nowMs() + playing->remainingMs();
    tell(name.empty() ? HostMessage{"noSpeaker", {}} : HostMessage{"speakerUnusable", {name}});
}

uint16_t SdlSpeaker::chunkSamples(int32_t rateHz) {
    int32_t samples = kMinChunkSamples;
    while (samples * kChunksPerSecond < rateHz && samples < kMaxChunkSamples) {
        samples *= 2;
    }
    return static_cast<uint16_t>(samples);
}

void SdlSpeaker::onWanted(void* playingState, uint8_t* bytes, int byteCount) {
    auto* playing = static_cast<Playing*>(playingState);
    auto* samples = reinterpret_cast<int16_t*>(bytes);
    const size_t count = static_cast<size_t>(byteCount) / sizeof(int16_t);
    bool last = false;
    {
        const std::lock_guard<std::mutex> lock(playing->mutex);
        const std::vector<int16_t>& clip = playing->clip->samples;
        const bool sounds = playing->open && !playing->paused;
        const size_t heard = sounds ? std::min(count, clip.size() - playing->position) : 0;
        for (size_t i = 0; i < heard; i++) {
            samples[i] =
                static_cast<int16_t>(clip[playing->position + i] * playing->volume / kFullVolume);
        }
        std::fill(samples + heard, samples + count, int16_t{0});
        playing->position += heard;
        if (sounds && playing->endMs == DueTime::kNever) {
            playing->progressMs = playing->nowMs();
            last = playing->position == clip.size();
            playing->endMs = last ? playing->progressMs + playing->latencyMs : DueTime::kNever;
        }
    }
    if (last) {
        playing->wake();
    }
}

int64_t SdlSpeaker::dueMs() {
    if (listener == nullptr) {
        return DueTime::kNever;
    }
    const std::lock_guard<std::mutex> lock(playing->mutex);
    if (playing->endMs != DueTime::kNever || playing->paused) {
        return playing->paused ? DueTime::kNever : playing->endMs;
    }
    return playing->progressMs + playing->remainingMs() + playing->latencyMs + kDeadAfterMs;
}

bool SdlSpeaker::deliver() {
    const int64_t due = dueMs();
    if (due == DueTime::kNever || due > nowMs()) {
        return false;
    }
    if (!hasAllGoneOut()) {
        tellLoss();
        return true;
    }
    HostSpeakerListener* const ending = listener;
    stop();
    ending->onClipEnd();
    return true;
}

bool SdlSpeaker::hasAllGoneOut() const {
    const std::lock_guard<std::mutex> lock(playing->mutex);
    return playing->endMs != DueTime::kNever;
}

bool SdlSpeaker::lose(uint32_t lostDevice) {
    if (listener == nullptr || lostDevice != device || !SdlAudio::isLost(device)) {
        return false;
    }
    tellLoss();
    return true;
}

void SdlSpeaker::tellLoss() {
    HostSpeakerListener* const losing = listener;
    stop();
    losing->onDeviceLost();
}

void SdlSpeaker::setVolume(int32_t newVolume) {
    volume = newVolume;
    if (playing != nullptr) {
        const std::lock_guard<std::mutex> lock(playing->mutex);
        playing->volume = volume;
    }
}

void SdlSpeaker::setPaused(bool paused) {
    if (listener == nullptr) {
        return;
    }
    const std::lock_guard<std::mutex> lock(playing->mutex);
    if (playing->paused == paused) {
        return;
    }
    playing->paused = paused;
    if (device == 0 && paused) {
        playing->leftMs = std::max<int64_t>(playing->endMs - nowMs(), 0);
    } else if (device == 0) {
        playing->endMs = nowMs() + playing->leftMs;
    } else if (!paused) {
        playing->progressMs = nowMs();
        playing->endMs =
            std::min(playing->endMs, playing->progressMs);  // DueTime::kNever stays DueTime::kNever
    }
}

void SdlSpeaker::stop() {
    if (listener == nullptr) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(playing->mutex);
        playing->open = false;
    }
    listener = nullptr;
    if (device != 0) {
        audio.closeLater(std::exchange(device, 0), playing);
    }
}
