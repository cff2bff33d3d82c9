// SPDX-License-Identifier: MIT
// The machine's speaker. Samples that the device has already taken are still heard: it falls silent
// at most one chunk after a stop. Without a device a clip takes its time, unheard, and the user is
// told.
#pragma once

#include "DueTime.h"
#include "HostMessage.h"
#include "HostSound.h"
#include "SdlAudio.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class SdlSpeaker : public HostSpeaker {
public:
    using Clock = std::function<int64_t()>;
    using Wake = std::function<void()>;
    using Tell = std::function<void(const HostMessage& message)>;

    /// @param audio  not owned
    /// @param name   of the device; empty: the system's default
    /// @param nowMs  the host's clock; read on the device's thread too
    /// @param wake   wakes the event thread; called on the device's thread
    /// @param tell   gets what the user must know of the device
    SdlSpeaker(SdlAudio& audio, std::string name, Clock nowMs, Wake wake, Tell tell);
    SdlSpeaker(const SdlSpeaker&) = delete;
    SdlSpeaker& operator=(const SdlSpeaker&) = delete;
    ~SdlSpeaker() override;

    /// When to call deliver() next; DueTime::kNever if no clip plays.
    int64_t dueMs();

    /// Ends the clip if its last sample was heard. Also ends it if the device has stopped asking
    /// for samples and the clip should be over by now: then the device counts as lost. Calls the
    /// listener and returns true if it ended the clip.
    bool deliver();

    /// SDL reports the loss of a device, by its number. If it is the one that plays, ends the clip,
    /// calls the listener and returns true.
    bool lose(uint32_t lostDevice);

    /// False only if a clip plays already.
    bool play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& newListener) override;
    void setVolume(int32_t newVolume) override;

    void pause() override { setPaused(true); }

    void resume() override { setPaused(false); }

    void stop() override;

    /// How many samples the device asks for at a time: a power of two, a quarter of a second of
    /// sound or up to twice as much. Less at rates above 131,072 Hz.
    static uint16_t chunkSamples(int32_t rateHz);

private:
    struct Playing;

    static void onWanted(void* playing, uint8_t* bytes, int byteCount);
    void setPaused(bool paused);
    bool hasAllGoneOut() const;
    void tellLoss();
    void playUnheard();

    SdlAudio& audio;
    std::string name;
    Clock nowMs;
    Wake wake;
    Tell tell;
    HostSpeakerListener* listener = nullptr;
    uint32_t device = 0;  // 0: no clip plays, or it plays without a device
    int32_t volume = kFullVolume;
    std::shared_ptr<Playing> playing;  // shared with the device's thread
};
