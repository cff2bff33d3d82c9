// SPDX-License-Identifier: MIT
// Passes on another microphone, and makes a copy of every take.
#pragma once

#include "HostSound.h"

#include <cstdint>
#include <functional>
#include <vector>

class CopyingMicrophone : public HostMicrophone {
public:
    /// Receives a take: 16 kHz, at least one sample.
    using Keep = std::function<void(std::vector<int16_t> samples)>;

    /// @param real   not owned
    /// @param onTakeDeleted  called by prepare(): the program has just deleted the earlier take
    /// @param keep  called by release(), before the program can delete its own file of the take
    CopyingMicrophone(HostMicrophone& real, std::function<void()> onTakeDeleted, Keep keep);

    bool isThere() override { return real.isThere(); }

    void prepare() override;

    /// The take is complete: passes the copy to keep. It includes samples that the program has not
    /// taken, for example after an interruption.
    void release() override;

    bool start(HostMicrophoneListener& listener) override;

    void stop() override { real.stop(); }

    int32_t take(int16_t* samples, int32_t count) override;

private:
    HostMicrophone& real;
    std::function<void()> onTakeDeleted;
    Keep keep;
    std::vector<int16_t> copy;  // the samples since start()
    bool isStarted = false;     // start() was called since the last release()
};
