// SPDX-License-Identifier: MIT
// A microphone that plays a sound file into each recording, from its beginning and at the pace of
// the given clock, with silence after its end.
#pragma once

#include "DueTime.h"
#include "HostSound.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class FileMicrophone : public HostMicrophone {
public:
    using Clock = std::function<int64_t()>;

    // How much sound waits to be taken at most: three times the longest take. Without a limit, a
    // clock that jumps by a day would make a day of sound.
    static constexpr int64_t kMaxWaitingMs = 60000;

    // How much of a file is read: the longest take and one second more, because a recording may end
    // some frames late.
    static constexpr int64_t kLongestVoiceSamples = int64_t{kLongestTakeSamples} + kRateHz;

    /// @param nowMs  the host's clock
    explicit FileMicrophone(Clock nowMs);

    /// Sets the sound of the next recordings; no samples: silence.
    void setVoice(std::vector<int16_t> samples) { voice = std::move(samples); }

    /// Sets the name that deviceName() returns.
    void setName(std::string fileName) { name = std::move(fileName); }

    std::string deviceName() override { return name; }

    /// When to call deliver(); DueTime::kNever if the listener wants no samples.
    int64_t dueMs() const;

    /// Calls the listener if dueMs() has come. True if it called.
    bool deliver();

    bool isThere() override { return true; }

    bool start(HostMicrophoneListener& newListener) override;
    void stop() override;
    int32_t take(int16_t* samples, int32_t count) override;

    bool readLevel(LevelMeter::Reading& reading) override;

    /// True from the loss of the device until the next start() or stop().
    bool isLost() const { return lost; }

    /// Simulates the loss of the device and calls the listener. False if there is no listener.
    bool lose();

private:
    int64_t heard() const;
    void listenNoMore();
    void forgetOldest();

    Clock nowMs;
    std::string name;
    std::vector<int16_t> voice;
    std::vector<int16_t> hearing;  // the sound of the current recording
    HostMicrophoneListener* listener = nullptr;
    int64_t startMs = 0;
    int64_t taken = 0;
    int64_t heardAtStop = 0;
    bool lost = false;
    LevelMeter meter;
    int64_t metered = 0;  // samples of this recording that the meter has measured
};
