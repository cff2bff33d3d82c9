// SPDX-License-Identifier: MIT
// The door's sound: one microphone and one speaker.
//
// For the next porter: samples are 16-bit mono. Whatever a device's own thread has to say waits for
// Host::pump(), which calls the listener; nothing is called once its object was told to stop.
#pragma once

#include "LevelMeter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class HostMicrophoneListener {
public:
    virtual ~HostMicrophoneListener() = default;

    /// How many samples to gather before onSamples(); 0 while there is no room for any.
    virtual int32_t samplesWanted() = 0;

    /// At least as many as wanted wait to be taken. Counts as a callback of Host::pump().
    virtual void onSamples() = 0;

    /// The device died while it listened: it was removed, or its server went away. It has stopped;
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

    /// A recording will be offered: time to ask the user for the microphone, where that is needed.
    virtual void prepare() {}

    /// The recording was made, or given up: the program needs neither the microphone any more nor
    /// the samples that it did not take.
    virtual void release() {}

    /// Begins to listen; samples that were not taken before are forgotten. False if there is no
    /// such device, or it listens already.
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

    /// The device died while it played: it was removed, or its server went away. The clip has
    /// stopped, and onClipEnd() does not follow. Counts as a callback of Host::pump().
    virtual void onDeviceLost() = 0;
};

class HostSpeaker {
public:
    static constexpr int32_t kFullVolume = 100;

    virtual ~HostSpeaker() = default;

    /// Plays a clip from its beginning. False if there is no such device, or a clip plays already.
    virtual bool play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& listener) = 0;

    /// 0 is silence, kFullVolume leaves the samples as they are; in proportion between. Holds for
    /// what is heard from now on, and for later clips.
    virtual void setVolume(int32_t volume) = 0;

    /// Silent at once, and stays where it is.
    virtual void pause() = 0;
    virtual void resume() = 0;

    /// Silent at once and done: the listener is not called.
    virtual void stop() = 0;
};
