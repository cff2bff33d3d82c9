#include "SdlAudio.h"

#include <SDL.h>

#include <chrono>
#include <dlfcn.h>
#include <thread>
#include <utility>

namespace {

constexpr int32_t kClosingMs = 1000;  // a healthy device needs a tenth of this

int isCapture(SdlAudio::Kind kind) {
    return kind == SdlAudio::Kind::kMicrophone ? 1 : 0;
}

/// Takes the place of the sound library's own printer of errors.
void printNothing(const char*, int, const char*, int, const char*, ...) {}

/// Where there is no sound server, the sound library tells ten lines of its troubles to the
/// terminal. The user hears of them in the window.
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
    if (ready && !isStuck()) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

bool SdlAudio::begin() {
    if (!ready) {
        silenceSoundLibrary();
        ready = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    }
    return ready;
}

bool SdlAudio::has(Kind kind) {
    // A negative count: there may be some that cannot be listed.
    return begin() && SDL_GetNumAudioDevices(isCapture(kind)) != 0;
}

std::vector<std::string> SdlAudio::names(Kind kind) {
    std::vector<std::string> names;
    const int count = begin() ? SDL_GetNumAudioDevices(isCapture(kind)) : 0;
    for (int i = 0; i < count; i++) {
        const char* name = SDL_GetAudioDeviceName(i, isCapture(kind));
        names.emplace_back(name != nullptr ? name : "");
    }
    return names;
}

uint32_t SdlAudio::open(Kind kind, const std::string& name, const SDL_AudioSpec& wanted) {
    if (!begin()) {
        return 0;
    }
    waitForClosing(kClosingMs);  // the same device may be still on its way out
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(name.empty() ? nullptr : name.c_str(),
                                                         isCapture(kind), &wanted, nullptr, 0);
    if (device != 0) {
        SDL_PauseAudioDevice(device, 0);
    }
    return device;
}

void SdlAudio::closeLater(uint32_t device, std::shared_ptr<void> callbackState) {
    {
        const std::lock_guard<std::mutex> lock(closing->mutex);
        closing->devices++;
    }
    std::thread([device, state = std::move(callbackState), shared = closing] {
        SDL_CloseAudioDevice(device);
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->devices--;
        shared->done.notify_all();
    }).detach();
}

bool SdlAudio::isStuck() {
    return !waitForClosing(kClosingMs);
}

bool SdlAudio::waitForClosing(int32_t ms) {
    std::unique_lock<std::mutex> lock(closing->mutex);
    return closing->done.wait_for(lock, std::chrono::milliseconds(ms),
                                  [this] { return closing->devices == 0; });
}
