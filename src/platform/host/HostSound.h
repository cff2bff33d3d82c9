// SPDX-License-Identifier: MIT
// The sound devices of a host: one microphone and one speaker.
//
// For the next porter: samples are 16-bit mono. Messages of a device's own thread wait for
// Host::pump(), which calls the listener. After a stop the listener is not called any more.
#pragma once

#include "LevelMeter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class HostMicrophoneListener {
public:
    virtual ~HostMicrophoneListener() = default;

    /// The number of samples to collect before onSamples(); 0 while there is no room for any.
    virtual int32_t samplesWanted() = 0;

    /// At least as many as wanted wait to be taken. Counts as a callback of Host::pump().
    virtual void onSamples() = 0;

    /// The device was lost during a recording: it was removed, or its server ended. It has stopped;
    /// what was heard before can still be taken. Counts as a callback of Host::pump().
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

    /// Name of the device, as the system shows it; empty if it is not known. Opens nothing.
    virtual std::string deviceName() { return ""; }

    /// A recording will be offered. A host that needs the user's permission for the microphone asks
    /// now.
    virtual void prepare() {}

    /// The recording was made or given up: the program needs neither the microphone nor the samples
    /// that it did not take any more.
    virtual void release() {}

    /// Begins to record; older samples that were not taken are dropped. False if there is no
    /// device, or it records already.
    virtual bool start(HostMicrophoneListener& listener) = 0;

    /// Stops listening; the listener is not called any more. What was heard until now can still be
    /// taken.
    virtual void stop() = 0;

    /// Moves up to count of the oldest samples out; returns how many.
    virtual int32_t take(int16_t* samples, int32_t count) = 0;

    /// How loud it is, taken as the device hears, not as the program takes the samples. Holds from
    /// start() until the next start(). False if the microphone does not know.
    virtual bool readLevel(LevelMeter::Reading& /*reading*/) { return false; }
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

    /// 0 is silence, kFullVolume leaves the samples unchanged; linear in between. Applies to what
    /// is heard from now on, and to later clips.
    virtual void setVolume(int32_t volume) = 0;

    /// Pauses: silent at once, and keeps the position.
    virtual void pause() = 0;
    virtual void resume() = 0;

    /// Stops: silent at once, the clip has ended, the listener is not called.
    virtual void stop() = 0;
};
