// SPDX-License-Identifier: MIT
// The browser's microphone. The browser asks the user when a recording is offered, and the program
// stands still until the answer. The microphone is released after each recording.
#pragma once

#include "HostSound.h"
#include "LevelMeter.h"
#include "RateTo16k.h"
#include "WebPage.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class WebMicrophone : public HostMicrophone {
public:
    /// @param page  not owned
    explicit WebMicrophone(WebPage& page)
        : page(page) {}

    /// True while the user is being asked.
    bool isAsked() const { return asked; }

    /// The user's answer. @param answered ticket of the question. @returns false if it is not the
    /// newest question: then the answer is dropped
    bool granted(int32_t answered);
    bool refused(int32_t answered);

    /// Samples from the page, -1 to 1. If their rate cannot be converted, they are dropped.
    /// @returns true if deliver() has something to do now
    bool heard(const float* samples, int32_t count, int32_t rateHz);

    /// True if it records and no sample has come for a second (checked twice). True only once,
    /// until samples come again.
    bool fellSilent();

    /// Milliseconds until fellSilent() must be called next; infinite if it need not be.
    double nextLookMs() const;

    /// True if a sample came since start().
    bool hasHeard() const { return heardAny; }

    /// True from the user's consent until release().
    bool isHeld() const { return held; }

    /// The device was lost. @returns true if it was recording; then the listener was called
    bool lose();

    /// True from the loss of the device until the next start() or stop().
    bool isLost() const { return lost; }

    /// Calls the listener if as many samples as it wants have come. True if it called.
    bool deliver();

    /// Returns the samples that the program took since start(), bit for bit, and drops them here;
    /// empty if there are none.
    std::vector<int16_t> takeAway() { return std::exchange(taken, {}); }

    /// True if start() was called since prepare().
    bool hasStarted() const { return started; }

    /// Always true: only asking finds out if the user allows it.
    bool isThere() override { return true; }

    /// The browser's name for it; known once the user has allowed it.
    std::string deviceName() override { return name; }

    void setDeviceName(std::string newName) { name = std::move(newName); }

    bool readLevel(LevelMeter::Reading& reading) override {
        reading = meter.read();
        return true;
    }

    void prepare() override;
    void release() override;
    bool start(HostMicrophoneListener& newListener) override;
    void stop() override;
    int32_t take(int16_t* samples, int32_t count) override;

private:
    bool hasEnough() const;
    void listenAgain();

    WebPage& page;
    HostMicrophoneListener* listener = nullptr;
    std::unique_ptr<RateTo16k> converter;
    int32_t converterRateHz = 0;
    std::deque<int16_t> waiting;
    std::vector<int16_t> taken;
    LevelMeter meter;
    std::string name;
    int32_t ticket = 0;
    double lookMs = 0;  // when fellSilent() has to look next, by the page's clock
    bool hasLooked = false;
    bool heardAny = false;
    bool asked = false;
    bool held = false;
    bool lost = false;
    bool started = false;
};
