// SPDX-License-Identifier: MIT
// The machine's microphone, at the phone's rate. While no device delivers it gives silence, so that
// a recording can always be stopped, and uses the first device that appears.
#pragma once

#include "DueTime.h"
#include "HostMessage.h"
#include "HostSound.h"
#include "MicrophoneWatch.h"
#include "SdlAudio.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class SdlMicrophone : public HostMicrophone {
public:
    using Wake = std::function<void()>;
    using Clock = std::function<int64_t()>;
    using Tell = std::function<void(const HostMessage& message)>;

    // How long the window may stand still while a device is opened. If it were shorter, the first
    // word could be lost to silence on a busy machine with a healthy device.
    static constexpr int32_t kOpeningMs = 500;

    // How long a device may deliver nothing before there is silence in its place.
    static constexpr int64_t kStalledMs = 1000;

    // How often to try again while a recording has no device. Waiting for SDL to announce a new
    // device would not do: each try starts SDL's sound again, which announces every device.
    static constexpr int64_t kRetryMs = 1000;

    /// @param audio  not owned
    /// @param name   of the device; empty: the system's default
    /// @param nowMs  the host's clock; read on the device's thread too
    /// @param wake   wakes the event thread; called on the device's thread
    /// @param tell   gets what the user must know of the device
    SdlMicrophone(SdlAudio& audio, std::string name, Clock nowMs, Wake wake, Tell tell);
    SdlMicrophone(const SdlMicrophone&) = delete;
    SdlMicrophone& operator=(const SdlMicrophone&) = delete;
    ~SdlMicrophone() override;

    /// Sets the device for the recordings after this one. @param newName empty: the system's
    /// default
    void choose(std::string newName);

    /// The chosen device, also while another one listens in its place; empty: the system's default.
    const std::string& chosen() const { return name; }

    /// When to call deliver() although the device has not called wake; DueTime::kNever if not at
    /// all.
    int64_t dueMs() const;

    /// Calls the listener if as many samples as it wants have come; if not, the device will call
    /// wake when they have. True if it called the listener.
    bool deliver();

    /// SDL reports that a device was lost. If it is the one that records and has delivered samples,
    /// stops, calls the listener and returns true. If it has delivered none, silence replaces it
    /// and another try is made.
    bool lose(uint32_t lostDevice);

    /// Call it when the devices have changed. Tells the user if the microphone of the recordings is
    /// gone or back. @param names of all microphones
    void listed(const std::vector<std::string>& names);

    /// True if a device has delivered something since the last start().
    bool hasHeard() const;

    /// Always true: without a device it gives silence, and tells the user when a recording begins.
    bool isThere() override { return true; }

    bool start(HostMicrophoneListener& newListener) override;
    void stop() override;
    int32_t take(int16_t* samples, int32_t count) override;
    std::string deviceName() override;
    bool readLevel(LevelMeter::Reading& reading) override;
    HostMessage whyUnheard() override;

    /// True from the loss of the device until the next start() or stop().
    bool isLost() const { return lost; }

private:
    struct Heard;

    void beginOpening();
    void finishOpening();
    void work();
    void fillSilence();
    void closeDevice();
    void listenNoMore();
    static void onHeard(void* heard, uint8_t* bytes, int byteCount);

    SdlAudio& audio;
    std::string name;
    Clock nowMs;
    Wake wake;
    Tell tell;
    MicrophoneWatch watch;
    HostMicrophoneListener* listener = nullptr;
    uint32_t device = 0;
    std::string openName;                        // name of the open device
    std::shared_ptr<SdlAudio::Opening> opening;  // null: none
    int64_t retryMs = DueTime::kNever;           // when to look for a device again
    // When silence began; DueTime::kNever: a device delivers.
    int64_t silentSinceMs = DueTime::kNever;
    int64_t silenceGiven = 0;  // samples of silence since then
    HostMessage unheard;       // why this recording has no device; without a row: it has one
    bool toldAway = false;     // the user knows that the chosen device is missing
    bool isReplaced = false;   // the last recording used the default in its place
    bool lost = false;
    std::shared_ptr<Heard> heard;  // shared with the device's thread
};
