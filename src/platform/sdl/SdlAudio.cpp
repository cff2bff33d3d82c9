// SPDX-License-Identifier: MIT
#include "SdlAudio.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <dlfcn.h>
#include <thread>
#include <utility>

namespace {

// How long closing a device may take. A healthy one needs half of this, because it first plays the
// samples that it has taken, up to three of its chunks.
constexpr int32_t kClosingMs = 1500;

int isCapture(SdlAudio::Kind kind) {
    return kind == SdlAudio::Kind::kMicrophone ? 1 : 0;
}

/// Takes the place of the sound library's own printer of errors.
void printNothing(const char*, int, const char*, int, const char*, ...) {}

/// Without a sound server the sound library prints ten lines of errors to the terminal. The window
/// shows the user a message instead.
void silenceSoundLibrary() {
    using Printer = void (*)(const char*, int, const char*, int, const char*, ...);
    using Setter = int (*)(Printer);
    void* setter = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler");
    if (setter != nullptr) {
        reinterpret_cast<Setter>(setter)(&printNothing);
    }
}

}  // namespace

SdlAudio::~SdlAudio() {
    if (work->isReady && !isStuck()) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

bool SdlAudio::begin() {
    if (!work->isReady && !isBusy()) {
        doPatiently([shared = work] { makeReady(*shared); });
    }
    return work->isReady;
}

bool SdlAudio::makeReady(Work& shared) {
    const std::lock_guard<std::timed_mutex> lock(shared.system);
    if (!shared.isReady) {
        silenceSoundLibrary();
        shared.isReady = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    }
    return shared.isReady;
}

bool SdlAudio::has(Kind kind) {
    if (!begin() || !work->system.try_lock_for(std::chrono::milliseconds(kMaxWaitMs))) {
        return false;
    }
    // A negative count means that there may be devices, but that they cannot be listed.
    const bool isAny = SDL_GetNumAudioDevices(isCapture(kind)) != 0;
    work->system.unlock();
    return isAny;
}

std::vector<std::string> SdlAudio::names(Kind kind) {
    if (!begin() || !work->system.try_lock_for(std::chrono::milliseconds(kMaxWaitMs))) {
        return {};
    }
    std::vector<std::string> names = listNames(kind);
    work->system.unlock();
    return names;
}

std::vector<std::string> SdlAudio::listNames(Kind kind) {
    std::vector<std::string> names;
    const int count = SDL_GetNumAudioDevices(isCapture(kind));
    for (int i = 0; i < count; i++) {
        const char* name = SDL_GetAudioDeviceName(i, isCapture(kind));
        names.emplace_back(name != nullptr ? name : "");
    }
    return names;
}

std::string SdlAudio::defaultName(Kind kind) {
    if (!work->isReady || !work->system.try_lock()) {
        return "";
    }
    std::string name = nameOfDefault(kind);
    work->system.unlock();
    return name;
}

std::string SdlAudio::nameOfDefault(Kind kind) {
    char* found = nullptr;
    SDL_AudioSpec format{};
    const int result = SDL_GetDefaultAudioInfo(&found, &format, isCapture(kind));
    std::string name = result == 0 && found != nullptr ? found : "";
    SDL_free(found);
    return name;
}

std::shared_ptr<SdlAudio::Listing> SdlAudio::namesLater(Kind kind, std::function<void()> wake) {
    auto listing = std::make_shared<Listing>();
    start([listing, kind, wake = std::move(wake), shared = work] {
        std::vector<std::string> names;
        if (makeReady(*shared)) {
            const std::lock_guard<std::timed_mutex> lock(shared->system);
            names = listNames(kind);
            const auto systems = std::find(names.begin(), names.end(), nameOfDefault(kind));
            if (systems != names.end()) {
                std::rotate(names.begin(), systems, systems + 1);
            }
        }
        {
            const std::lock_guard<std::mutex> lock(listing->mutex);
            listing->found = std::move(names);
            listing->isFinished = true;
        }
        wake();
    });
    return listing;
}

bool SdlAudio::Listing::isDone() {
    const std::lock_guard<std::mutex> lock(mutex);
    return isFinished;
}

std::vector<std::string> SdlAudio::Listing::names() {
    const std::lock_guard<std::mutex> lock(mutex);
    return found;
}

bool SdlAudio::isLost(uint32_t device) {
    return SDL_GetAudioDeviceStatus(device) == SDL_AUDIO_STOPPED;
}

uint32_t SdlAudio::open(Kind kind, const std::string& name, const SDL_AudioSpec& wanted) {
    if (!begin()) {
        return 0;
    }
    bool inTime = false;
    uint32_t device = tryToOpen(kind, name, wanted, inTime);
    // A device that only one program at a time may use may still be closing.
    if (device == 0 && inTime && isBusy() && waitForWork(kClosingMs)) {
        device = tryToOpen(kind, name, wanted, inTime);
    }
    return device;
}

/// Opens a device and counts it under one lock: without the lock, and with no device counted,
/// another thread may end SDL's sound.
uint32_t
SdlAudio::openCounted(Work& shared, Kind kind, const char* name, const SDL_AudioSpec& wanted) {
    const std::lock_guard<std::timed_mutex> lock(shared.system);
    return openLocked(shared, kind, name, wanted);
}

uint32_t
SdlAudio::openLocked(Work& shared, Kind kind, const char* name, const SDL_AudioSpec& wanted) {
    const SDL_AudioDeviceID device =
        SDL_OpenAudioDevice(name, isCapture(kind), &wanted, nullptr, 0);
    shared.openDevices += device != 0 ? 1 : 0;
    return device;
}

void SdlAudio::closeCounted(Work& shared, uint32_t device) {
    if (device != 0) {
        SDL_CloseAudioDevice(device);
        shared.openDevices--;
    }
}

uint32_t
SdlAudio::tryToOpen(Kind kind, const std::string& name, const SDL_AudioSpec& wanted, bool& inTime) {
    // The later of the two cleans up: the thread that opens, or this one, which waits for it.
    struct Opening {
        std::mutex mutex;
        SDL_AudioDeviceID device = 0;
        bool abandoned = false;
    };

    const auto opening = std::make_shared<Opening>();
    inTime = doPatiently([opening, name, wanted, kind, shared = work] {
        const SDL_AudioDeviceID device =
            openCounted(*shared, kind, name.empty() ? nullptr : name.c_str(), wanted);
        const std::lock_guard<std::mutex> lock(opening->mutex);
        opening->device = device;
        if (opening->abandoned) {
            closeCounted(*shared, device);
        } else {
            SDL_PauseAudioDevice(device, 0);  // at once: a device begins paused
        }
    });
    const std::lock_guard<std::mutex> lock(opening->mutex);
    opening->abandoned = true;
    return opening->device;
}

void SdlAudio::closeLater(uint32_t device, std::shared_ptr<void> callbackState) {
    start([device, state = std::move(callbackState), shared = work] {
        closeCounted(*shared, device);
    });
}

std::shared_ptr<SdlAudio::Opening> SdlAudio::openLater(const std::string& name,
                                                       const SDL_AudioSpec& wanted,
                                                       std::shared_ptr<void> callbackState,
                                                       std::function<void()> wake) {
    auto opening = std::make_shared<Opening>();
    start([opening, name, wanted, state = std::move(callbackState), wake = std::move(wake),
           shared = work] {
        openInto(*opening, *shared, name, wanted);
        wake();
    });
    return opening;
}

void SdlAudio::openInto(Opening& opening,
                        Work& shared,
                        const std::string& name,
                        const SDL_AudioSpec& wanted) {
    SDL_AudioDeviceID device = 0;
    bool usedDefault = false;
    bool isReady = makeReady(shared);
    for (int32_t tries = 0; isReady && device == 0 && tries < 2; tries++) {
        if (tries > 0) {
            // SDL's list of devices is that of a server that may have ended. Starting SDL's sound
            // again finds the new one.
            const std::lock_guard<std::timed_mutex> lock(shared.system);
            if (shared.openDevices > 0) {
                break;
            }
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
            shared.isReady = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
            isReady = shared.isReady;
        }
        const std::lock_guard<std::timed_mutex> lock(shared.system);
        const std::vector<std::string> known =
            isReady ? listNames(Kind::kMicrophone) : std::vector<std::string>();
        // Checked here because SDL itself would open the default without telling.
        usedDefault = !name.empty() && std::find(known.begin(), known.end(), name) == known.end();
        const char* wantedName = name.empty() || usedDefault ? nullptr : name.c_str();
        device = isReady ? openLocked(shared, Kind::kMicrophone, wantedName, wanted) : 0;
    }
    const std::lock_guard<std::mutex> lock(opening.mutex);
    opening.isFinished = true;
    opening.usedDefault = usedDefault && device != 0;
    opening.error = device == 0 ? SDL_GetError() : "";
    if (device != 0 && opening.isAbandoned) {
        closeCounted(shared, device);
    } else if (device != 0) {
        opening.device = device;
        SDL_PauseAudioDevice(device, 0);
    }
    opening.done.notify_all();
}

bool SdlAudio::wait(Opening& opening, int32_t ms) {
    std::unique_lock<std::mutex> lock(opening.mutex);
    return opening.done.wait_for(lock, std::chrono::milliseconds(ms),
                                 [&opening] { return opening.isFinished; });
}

bool SdlAudio::Opening::isDone() {
    const std::lock_guard<std::mutex> lock(mutex);
    return isFinished;
}

uint32_t SdlAudio::Opening::take() {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(device, 0);
}

std::string SdlAudio::Opening::reason() {
    const std::lock_guard<std::mutex> lock(mutex);
    return error;
}

bool SdlAudio::Opening::isFallback() {
    const std::lock_guard<std::mutex> lock(mutex);
    return usedDefault;
}

void SdlAudio::Opening::abandon() {
    const std::lock_guard<std::mutex> lock(mutex);
    isAbandoned = true;
}

void SdlAudio::start(std::function<void()> piece) {
    {
        const std::lock_guard<std::mutex> lock(work->mutex);
        work->pieces++;
    }
    std::thread([piece = std::move(piece), shared = work]() mutable {
        piece();
        piece = nullptr;   // what it owns is freed before the work is reported as done
        SDL_TLSCleanup();  // SDL keeps an error text for each thread that it does not know
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->pieces--;
        shared->done.notify_all();
    }).detach();
}

bool SdlAudio::doPatiently(std::function<void()> piece) {
    const auto done = std::make_shared<bool>(false);
    start([piece = std::move(piece), done, shared = work] {
        piece();
        const std::lock_guard<std::mutex> lock(shared->mutex);
        *done = true;
    });
    std::unique_lock<std::mutex> lock(work->mutex);
    return work->done.wait_for(lock, std::chrono::milliseconds(kMaxWaitMs),
                               [done] { return *done; });
}

bool SdlAudio::isBusy() {
    return !waitForWork(0);
}

bool SdlAudio::isStuck() {
    return !waitForWork(kClosingMs);
}

bool SdlAudio::waitForWork(int32_t ms) {
    std::unique_lock<std::mutex> lock(work->mutex);
    return work->done.wait_for(lock, std::chrono::milliseconds(ms),
                               [this] { return work->pieces == 0; });
}
