// The machine's microphone, at the phone's rate.
#pragma once

#include "HostSound.h"
#include "SdlAudio.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class SdlMicrophone : public HostMicrophone {
public:
    using Wake = std::function<void()>;

    /// @param audio  not owned
    /// @param name   of the device; empty: the system's default
    /// @param wake   rouses the event thread; called on the device's thread
    SdlMicrophone(SdlAudio& audio, std::string name, Wake wake);
    SdlMicrophone(const SdlMicrophone&) = delete;
    SdlMicrophone& operator=(const SdlMicrophone&) = delete;
    ~SdlMicrophone() override;

    /// Calls the listener if enough was heard; if not, the device will rouse. True if it called.
    bool deliver();

    /// SDL says that this device of its own died. True if it was the one that listens: then that
    /// was said on standard error and the listener was called.
    bool lose(uint32_t lostDevice);

    bool isThere() override;
    bool start(HostMicrophoneListener& newListener) override;
    void stop() override;
    int32_t take(int16_t* samples, int32_t count) override;
    std::string deviceName() override;
    bool readLevel(LevelMeter::Reading& reading) override;

    /// True from the loss of the device until the next start() or stop().
    bool isLost() const { return lost; }

private:
    struct Heard;

    void listenNoMore();
    static void onHeard(void* heard, uint8_t* bytes, int byteCount);

    SdlAudio& audio;
    std::string name;
    Wake wake;
    HostMicrophoneListener* listener = nullptr;
    uint32_t device = 0;
    bool lost = false;
    std::shared_ptr<Heard> heard;  // shared with the device's thread
};
