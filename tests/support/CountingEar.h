// SPDX-License-Identifier: MIT
// Counts what a microphone tells, and takes nothing.
#pragma once

#include "HostSound.h"

#include <cstdint>

class CountingEar : public HostMicrophoneListener {
public:
    explicit CountingEar(int32_t wanted)
        : wanted(wanted) {}

    int32_t samplesWanted() override { return wanted; }

    void onSamples() override { calls++; }

    void onDeviceLost() override { losses++; }

    int32_t wanted;
    int32_t calls = 0;
    int32_t losses = 0;
};
