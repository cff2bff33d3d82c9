// SPDX-License-Identifier: MIT
#include "FileManager.h"

#include "FileUri.h"
#include "OwnEnvironment.h"
#include "SessionBus.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// The shell finds the program by the user's PATH and is replaced by it.
constexpr const char* kScript = "exec xdg-open \"$1\" </dev/null >/dev/null 2>&1";

// How long the file manager may take to reply; after that xdg-open is tried. Not longer, because
// the user is waiting for the window.
constexpr int kMaxWaitMs = 5000;

// A failure after more than this is ignored: the folder was shown. On some desktops xdg-open ends
// only when the file manager does, with any result.
constexpr std::chrono::seconds kFailsWithin{30};

bool succeeds(pid_t child) {
    int status = 0;
    pid_t ended = -1;
    do {
        ended = ::waitpid(child, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Asks the file manager over the session bus. False if there is none that does this.
bool marks(const std::string& path) {
    const SessionBus bus;
    if (!bus.isOpen()) {
        return false;
    }
    constexpr const char* kName = "org.freedesktop.FileManager1";
    const SessionBus::Message call =
        SessionBus::newCall({kName, "/org/freedesktop/FileManager1", kName, "ShowItems"});
    const std::string uri = FileUri::fromPath(path);
    const char* address = uri.c_str();
    const char** addresses = &address;
    const char* startupId = "";
    dbus_message_append_args(call.get(), DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &addresses, 1,
                             DBUS_TYPE_STRING, &startupId, DBUS_TYPE_INVALID);
    return bus.call(*call, kMaxWaitMs) != nullptr;
}

}  // namespace

bool FileManager::showFile(const std::string& path) {
    std::error_code error;
    return (std::filesystem::exists(path, error) && marks(path)) ||
           show(std::filesystem::path(path).parent_path().string());
}

bool FileManager::show(const std::string& folder) {
    std::string shell = "sh";
    std::string option = "-c";
    std::string script = kScript;
    std::string path = folder;
    char* const words[] = {shell.data(), option.data(), script.data(),
                           shell.data(), path.data(),   nullptr};
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0) {
        return false;
    }
    // In a session of its own: a signal to this program's terminal does not reach it.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    std::vector<std::string> variables = OwnEnvironment::ofUser();
    std::vector<char*> environment;
    environment.reserve(variables.size() + 1);
    for (std::string& variable : variables) {
        environment.push_back(variable.data());
    }
    environment.push_back(nullptr);
    pid_t child = 0;
    const bool isStarted =
        posix_spawn(&child, "/bin/sh", nullptr, &attributes, words, environment.data()) == 0;
    posix_spawnattr_destroy(&attributes);
    const auto start = std::chrono::steady_clock::now();
    return isStarted &&
           (succeeds(child) || std::chrono::steady_clock::now() - start > kFailsWithin);
}
