// SPDX-License-Identifier: MIT
// The browser's microphone. The user is asked for it when a recording is offered, and the program
// stands still until the answer; it is given back after each recording.
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

    /// The user's answer. An answer to an earlier question is dropped. @returns whether it counted
    bool granted(int32_t answered);
    bool refused(int32_t answered);

    /// Samples from the page, -1 to 1. Those of a rate that cannot be converted are dropped.
    /// @returns whether deliver() has something to do now
    bool heard(const float* samples, int32_t count, int32_t rateHz);

    /// Looks whether it listens and no sample has come for a second: true once, until more is
    /// heard.
    bool fellSilent();

    /// After how many milliseconds fellSilent() wants to look next; endless if there is no need.
    double nextLookMs() const;

    /// True if a sample came since start().
    bool hasHeard() const { return heardAny; }

    /// True from the user's consent until it is given back.
    bool isHeld() const { return held; }

    /// The device is gone. @returns whether it listened: then its listener was called
    bool lose();

    /// True from the loss of the device until the next start() or stop().
    bool isLost() const { return lost; }

    /// Calls the listener if enough was heard. True if it called.
    bool deliver();

    /// Returns the samples that the program took since start(), bit for bit, and drops them here;
    /// empty if there are none.
    std::vector<int16_t> takeAway() { return std::exchange(taken, {}); }

    /// True if it has listened since it was prepared.
    bool hasStarted() const { return started; }

    /// Always: whether the user lets it listen is found out by asking.
    bool isThere() override { return true; }

    /// As the browser shows it, once the user has let it listen.
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
    double lookMs = 0;  // when fellSilent() looks next, on the page's clock
    bool hasLooked = false;
    bool heardAny = false;
    bool asked = false;
    bool held = false;
    bool lost = false;
    bool started = false;
};
