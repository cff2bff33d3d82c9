// SPDX-License-Identifier: MIT
// The sound devices of a host: one microphone and one speaker.
//
// For a new back end: samples are 16-bit mono. If a device has a thread of its own, the host keeps
// its messages until Host::pump(), which calls the listener. After stop() the listener is not
// called any more.
#pragma once

#include "HostMessage.h"
#include "LevelMeter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class HostMicrophoneListener {
public:
    virtual ~HostMicrophoneListener() = default;

    /// How many samples to collect before onSamples() is called; 0 while the program has no room
    /// for samples.
    virtual int32_t samplesWanted() = 0;

    /// At least samplesWanted() samples can be taken. Counts as a callback of Host::pump().
    virtual void onSamples() = 0;

    /// The device was lost during a recording: it was removed, or its server ended. The recording
    /// has stopped; the samples from before can still be taken. Counts as a callback of
    /// Host::pump().
    virtual void onDeviceLost() = 0;
};

class HostMicrophone {
public:
    static constexpr int32_t kRateHz = 16000;

    /// The longest take: 20 s.
    static constexpr int32_t kLongestTakeSamples = 20 * kRateHz;

    virtual ~HostMicrophone() = default;

    /// True if there is a device. Does not open it.
    virtual bool isThere() = 0;

    /// Name of the device, as the system shows it; empty if it is not known. Does not open it.
    virtual std::string deviceName() { return ""; }

    /// Called before a recording is offered: a host that needs the user's permission for the
    /// microphone asks now.
    virtual void prepare() {}

    /// Called when the recording was made or given up: the program no longer needs the microphone,
    /// nor the samples that it has not taken.
    virtual void release() {}

    /// Begins to record; older samples that were not taken are dropped. False if there is no
    /// device, or it records already.
    virtual bool start(HostMicrophoneListener& listener) = 0;

    /// Stops recording; the listener is not called any more. The samples recorded so far can still
    /// be taken.
    virtual void stop() = 0;

    /// Moves up to count of the oldest samples to samples; returns how many.
    virtual int32_t take(int16_t* samples, int32_t count) = 0;

    /// The level of the sound that the device records now, whether or not the program has taken the
    /// samples yet. Valid from the first start() on, also after a stop(). False if the microphone
    /// does not measure it.
    virtual bool readLevel(LevelMeter::Reading& /*reading*/) { return false; }

    /// Why no device has delivered a sample since the last start(); without a row if one has, or if
    /// the reason is not known.
    virtual HostMessage whyUnheard() { return {}; }
};

struct HostClip {
    std::vector<int16_t> samples;
    int32_t rateHz = 0;
};

class HostSpeakerListener {
public:
    virtual ~HostSpeakerListener() = default;

    /// The last sample of the clip was heard. Counts as a callback of Host::pump().
    virtual void onClipEnd() = 0;

    /// The device was lost while it played: it was removed, or its server ended. The clip has
    /// stopped, and onClipEnd() does not follow. Counts as a callback of Host::pump().
    virtual void onDeviceLost() = 0;
};

class HostSpeaker {
public:
    static constexpr int32_t kFullVolume = 100;

    virtual ~HostSpeaker() = default;

    /// Plays a clip from its beginning. False if there is no such device, or a clip plays already.
    virtual bool play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& listener) = 0;

    /// 0 is silence, kFullVolume leaves the samples unchanged; linear in between. Applies to the
    /// rest of the current clip and to later clips.
    virtual void setVolume(int32_t volume) = 0;

    /// Silent at once; keeps the position.
    virtual void pause() = 0;
    virtual void resume() = 0;

    /// Silent at once; ends the clip without calling the listener.
    virtual void stop() = 0;
};
