// SPDX-License-Identifier: MIT
// The microphone that the program sees: another one, and a copy of every take that it gave.
#pragma once

#include "HostSound.h"

#include <cstdint>
#include <functional>
#include <vector>

class CopyingMicrophone : public HostMicrophone {
public:
    /// Gets the take, 16 kHz, at least one sample.
    using Keep = std::function<void(std::vector<int16_t> samples)>;

    /// @param real   not owned
    /// @param letGo  called from prepare(): the program has just deleted the take before
    /// @param keep   called from release(), before the program can delete its own file of the take
    CopyingMicrophone(HostMicrophone& real, std::function<void()> letGo, Keep keep);

    bool isThere() override { return real.isThere(); }

    void prepare() override;

    /// The take is complete: hands over all that was heard. What the program did not take any more,
    /// as after an interruption, belongs to it.
    void release() override;

    bool start(HostMicrophoneListener& listener) override;

    void stop() override { real.stop(); }

    int32_t take(int16_t* samples, int32_t count) override;

private:
    HostMicrophone& real;
    std::function<void()> letGo;
    Keep keep;
    std::vector<int16_t> copy;  // since start()
    bool isStarted = false;     // since the last release()
};
