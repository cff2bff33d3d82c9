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

    // How long the window may stand still for a device. Shorter, and a healthy device of a busy
    // machine misses the first word, with silence in its place.
    static constexpr int32_t kOpeningMs = 500;

    // How long a device may deliver nothing before there is silence in its place.
    static constexpr int64_t kStalledMs = 1000;

    // How often a device is sought while a recording hears none. Each try begins SDL's sound again,
    // which announces every device: an announcement says nothing about a device that is new.
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

    /// Which device listens from the next recording on. @param newName  empty: the system's default
    void choose(std::string newName);

    /// The chosen device, also while another one listens in its place; empty: the system's default.
    const std::string& chosen() const { return name; }

    /// When deliver() has something to do without a device; DueTime::kNever if it has not.
    int64_t dueMs() const;

    /// Calls the listener if enough was heard; if not, the device will call wake later. True if it
    /// called the listener.
    bool deliver();

    /// SDL says that this device of its own died. True if it was the one that listens, and had
    /// heard something: then the listener was called. One that had heard nothing is replaced by
    /// silence.
    bool lose(uint32_t lostDevice);

    /// The devices have changed; these are the names of all microphones. Tells the user if the one
    /// of the recordings has gone or is back.
    void listed(const std::vector<std::string>& names);

    /// True if a device has delivered something since the last start().
    bool hasHeard() const;

    /// Always: without a device it gives silence, and says so when a recording begins.
    bool isThere() override { return true; }

    bool start(HostMicrophoneListener& newListener) override;
    void stop() override;
    int32_t take(int16_t* samples, int32_t count) override;
    std::string deviceName() override;
    bool readLevel(LevelMeter::Reading& reading) override;

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
    std::string openName;                        // of the device, as long as it is open
    std::shared_ptr<SdlAudio::Opening> opening;  // null: none
    int64_t retryMs = DueTime::kNever;           // when to look for a device again
    int64_t silentSinceMs =
        DueTime::kNever;        // from when on silence is due; DueTime::kNever: a device delivers
    int64_t silenceGiven = 0;   // samples since then
    bool toldUnusable = false;  // in this recording
    bool toldAway = false;      // since the device was chosen
    bool isReplaced = false;    // another device listened last in its place
    bool lost = false;
    std::shared_ptr<Heard> heard;  // shared with the device's thread
};
