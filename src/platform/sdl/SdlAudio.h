// The machine's sound devices, as SDL knows them.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct SDL_AudioSpec;

class SdlAudio {
public:
    enum class Kind { kMicrophone, kSpeaker };

    SdlAudio() = default;
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    /// Gives devices that are being closed a moment.
    ~SdlAudio();

    /// Makes the sound system ready, on first use: a program that makes no sound never asks for
    /// it. False if the machine has none.
    bool begin();

    /// Whether there is any device of that kind.
    bool has(Kind kind);

    std::vector<std::string> names(Kind kind);

    /// Opens a device in exactly the format wanted (SDL converts) and lets it run.
    /// @param name  empty: the system's default
    /// @returns SDL's number of the device, 0 if it cannot be opened
    uint32_t open(Kind kind, const std::string& name, const SDL_AudioSpec& wanted);

    /// Closes a device behind the program's back: one whose source has stalled never answers, and
    /// the window must not wait for it.
    /// @param callbackState  what the device's callback works on; kept until it is closed
    void closeLater(uint32_t device, std::shared_ptr<void> callbackState);

    /// A device is being closed for so long that it never will be. Then nothing of SDL may be shut
    /// down any more, for that would wait too.
    bool isStuck();

private:
    struct Closing {
        std::mutex mutex;
        std::condition_variable done;
        int32_t devices = 0;
    };

    bool waitForClosing(int32_t ms);

    std::shared_ptr<Closing> closing = std::make_shared<Closing>();
    bool ready = false;
};
