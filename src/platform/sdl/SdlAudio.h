// SPDX-License-Identifier: MIT
// The machine's sound devices, as SDL knows them.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct SDL_AudioSpec;

class SdlAudio {
public:
    enum class Kind { kMicrophone, kSpeaker };

    // The longest time that the window waits for a sound server that does not respond.
    static constexpr int32_t kMaxWaitMs = 3000;

    SdlAudio() = default;
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    /// Waits a moment for devices that are being closed.
    ~SdlAudio();

    /// Starts the sound system at the first use, so that a program that makes no sound never needs
    /// it. False if the machine has none, or it does not respond within kMaxWaitMs.
    bool begin();

    /// True if there is a device of that kind.
    bool has(Kind kind);

    std::vector<std::string> names(Kind kind);

    /// A list of device names that another thread is asking for.
    class Listing {
    public:
        /// True once the names are known, or it is known that they cannot be.
        bool isDone();

        /// The names, the system's default first. Call it once isDone() returns true.
        std::vector<std::string> names();

    private:
        friend class SdlAudio;

        std::mutex mutex;
        bool isFinished = false;
        std::vector<std::string> found;
    };

    /// Asks for the names without waiting: a sound server that has stalled may never return them.
    /// @param wake  called on another thread when they are known
    std::shared_ptr<Listing> namesLater(Kind kind, std::function<void()> wake);

    /// Name of the system's default device; empty if it is not known, or before begin().
    std::string defaultName(Kind kind);

    /// True if SDL itself has stopped a device that it opened: it was removed, or its server ended.
    /// False for a device that runs, even if an older event says that it has ended.
    static bool isLost(uint32_t device);

    /// Opens a device in exactly the format wanted (SDL converts) and lets it run.
    /// @param name  empty: the system's default
    /// @returns SDL's number of the device, 0 if it cannot be opened within kMaxWaitMs
    uint32_t open(Kind kind, const std::string& name, const SDL_AudioSpec& wanted);

    /// A device that is being opened on another thread.
    class Opening {
    public:
        /// True once it is known whether the device could be opened.
        bool isDone();

        /// SDL's number of the device; 0 if it could not be opened. After this the caller owns the
        /// device and must close it.
        uint32_t take();

        /// Why it could not be opened, in SDL's words.
        std::string reason();

        /// True if the device of that name was missing, and the system's default was opened.
        bool isFallback();

        /// The caller does not need the device any more. If it is still being opened, it is closed
        /// after that; if it was opened, take() still returns it.
        void abandon();

    private:
        friend class SdlAudio;

        std::mutex mutex;
        std::condition_variable done;
        uint32_t device = 0;
        bool isFinished = false;
        bool isAbandoned = false;
        bool usedDefault = false;
        std::string error;
    };

    /// Opens a microphone in exactly the format wanted, without waiting. If the sound system has
    /// ended and is there again, it is made ready again.
    /// @param callbackState  what the device's callback works on; kept until it is opened
    /// @param wake  called on another thread when the opening is done
    std::shared_ptr<Opening> openLater(const std::string& name,
                                       const SDL_AudioSpec& wanted,
                                       std::shared_ptr<void> callbackState,
                                       std::function<void()> wake);

    /// Waits until an opening is done, for at most ms milliseconds. True if it is done.
    static bool wait(Opening& opening, int32_t ms);

    /// Closes a device on a thread of its own: closing one that has stalled may never end, and the
    /// window must not wait for it.
    /// @param callbackState  what the device's callback works on; kept until it is closed
    void closeLater(uint32_t device, std::shared_ptr<void> callbackState);

    /// Waits a moment for devices that are being opened or closed. True if that does not end; then
    /// SDL must not be shut down, because that would wait too.
    bool isStuck();

private:
    /// What other threads are doing with SDL's sound.
    struct Work {
        std::mutex mutex;
        std::condition_variable done;
        int32_t pieces = 0;
        std::atomic<int32_t> openDevices{0};
        std::atomic<bool> isReady{false};
        // Held while SDL's sound is begun, ended or asked for names, and while a device is opened.
        std::timed_mutex system;
    };

    static bool makeReady(Work& shared);
    static void
    openInto(Opening& opening, Work& shared, const std::string& name, const SDL_AudioSpec& wanted);
    static uint32_t
    openCounted(Work& shared, Kind kind, const char* name, const SDL_AudioSpec& wanted);
    static uint32_t
    openLocked(Work& shared, Kind kind, const char* name, const SDL_AudioSpec& wanted);
    static void closeCounted(Work& shared, uint32_t device);
    static std::vector<std::string> listNames(Kind kind);
    static std::string nameOfDefault(Kind kind);

    /// Begins a piece of work on another thread.
    void start(std::function<void()> piece);

    /// Waits until all of the work is done, for at most ms milliseconds. False if it is not done by
    /// then.
    bool waitForWork(int32_t ms);

    uint32_t
    tryToOpen(Kind kind, const std::string& name, const SDL_AudioSpec& wanted, bool& inTime);

    /// Does a piece of work on another thread and waits for it. False if it is not done after
    /// kMaxWaitMs; the work then goes on.
    bool doPatiently(std::function<void()> piece);
    bool isBusy();

    std::shared_ptr<Work> work = std::make_shared<Work>();
};
