// SPDX-License-Identifier: MIT
#include "Speech.h"

#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <libspeechd.h>
#include <mutex>
#include <thread>
#include <utility>

struct Speech::Functions {
    decltype(&spd_open2) open = nullptr;
    decltype(&spd_set_language) setLanguage = nullptr;
    decltype(&spd_cancel) cancel = nullptr;
    decltype(&spd_say) say = nullptr;
    decltype(&spd_close) close = nullptr;
};

struct Speech::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::string text;  // to be said; empty: nothing
    std::string language;
    Failure failure;
    bool isOver = false;  // nothing more is to be said
    Wake wake;
};

namespace {

template <typename Function>
bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

}  // namespace

Speech::~Speech() {
    if (shared != nullptr) {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->isOver = true;
        shared->wake = nullptr;
        shared->changed.notify_all();
    }
}

Problem Speech::start(Wake wake, const char* library) {
    void* opened = dlopen(library, RTLD_NOW | RTLD_LOCAL);  // never unloaded: the thread uses it
    if (opened == nullptr) {
        return std::string(library) + " is missing";
    }
    Functions functions;
    const bool isWhole = find(opened, "spd_open2", functions.open) &&
                         find(opened, "spd_set_language", functions.setLanguage) &&
                         find(opened, "spd_cancel", functions.cancel) &&
                         find(opened, "spd_say", functions.say) &&
                         find(opened, "spd_close", functions.close);
    if (!isWhole) {
        return std::string(library) + " is another library";
    }
    shared = std::make_shared<Shared>();
    shared->wake = std::move(wake);
    std::thread([shared = shared, functions] { work(*shared, functions); }).detach();
    return Problem::none();
}

/// Runs on the thread of its own until the program ends. Returns at once if the server cannot be
/// reached.
void Speech::work(Shared& shared, const Functions& functions) {
    // A write to a server that has ended must fail, and not end the program.
    sigset_t broken;
    sigemptyset(&broken);
    sigaddset(&broken, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &broken, nullptr);
    char* reason = nullptr;
    SPDConnection* server =
        functions.open("murmelo", "main", nullptr, SPD_MODE_SINGLE, nullptr, 1, &reason);
    std::unique_lock<std::mutex> lock(shared.mutex);
    if (server == nullptr) {
        fail(shared, {"the speech server cannot be reached", reason != nullptr ? reason : ""});
        std::free(reason);
        return;
    }
    while (!shared.isOver) {
        if (shared.text.empty()) {
            shared.changed.wait(lock);
            continue;
        }
        const std::string text = std::exchange(shared.text, "");
        const std::string language = shared.language;
        lock.unlock();
        functions.setLanguage(server, language.c_str());
        functions.cancel(server);
        const bool isSaid = functions.say(server, SPD_TEXT, text.c_str()) >= 0;
        lock.lock();
        if (!isSaid) {
            fail(shared, {"the speech server has ended", ""});
        }
    }
    lock.unlock();
    functions.close(server);
}

/// Tells the event thread, and ends the work. Call it with the lock.
void Speech::fail(Shared& shared, Failure failure) {
    shared.failure = std::move(failure);
    shared.isOver = true;
    if (shared.wake) {
        shared.wake();
    }
}

void Speech::say(const std::string& text, const std::string& language) {
    if (shared == nullptr || text.empty()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(shared->mutex);
    if (shared->isOver) {
        return;
    }
    shared->text = text;
    shared->language = language;
    shared->changed.notify_all();
}

Speech::Failure Speech::takeFailure() {
    if (shared == nullptr) {
        return {};
    }
    const std::lock_guard<std::mutex> lock(shared->mutex);
    return std::exchange(shared->failure, {});
}
