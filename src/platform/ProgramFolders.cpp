#include "ProgramFolders.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* kLockName = ".murmelo.lock";

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string lastError() {
    return std::error_code(errno, std::generic_category()).message();
}

/// The folder of an XDG variable, or the given one below the user's home.
std::string xdgFolder(const char* variable, const char* otherwise) {
    const std::string folder = environment(variable);
    return !folder.empty() && folder[0] == '/' ? folder : environment("HOME") + "/" + otherwise;
}

/// The music folder as the user's desktop names it; empty if it names none that exists.
std::string musicFolder() {
    const std::string key = "XDG_MUSIC_DIR=\"";
    std::ifstream file(xdgFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs");
    std::string line;
    while (std::getline(file, line)) {
        const size_t end = line.rfind('"');
        if (line.compare(0, key.size(), key) != 0 || end < key.size()) {
            continue;
        }
        std::string folder = line.substr(key.size(), end - key.size());
        const std::string home = "$HOME";
        if (folder.compare(0, home.size(), home) == 0) {
            folder = environment("HOME") + folder.substr(home.size());
        }
        std::error_code error;
        // A desktop without a music folder points to the home itself; sounds do not belong there.
        return fs::is_directory(folder, error) &&
                       !fs::equivalent(folder, environment("HOME"), error)
                   ? folder
                   : "";
    }
    return "";
}

std::string chosenHome(const std::string& given) {
    if (!given.empty()) {
        return given;
    }
    std::string fromEnvironment = environment("MURMELO_HOME");
    if (!fromEnvironment.empty()) {
        return fromEnvironment;
    }
    if (environment("HOME").empty() && environment("XDG_DATA_HOME").empty()) {
        return "";
    }
    const std::string music = musicFolder();
    return !music.empty() ? music : xdgFolder("XDG_DATA_HOME", ".local/share") + "/murmelo";
}

/// The folder that holds "Res" and "framework"; empty if there is none.
fs::path dataFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    const fs::path beside = executable.parent_path();
    for (const fs::path& folder :
         {fs::path(environment("MURMELO_DATA")), beside, beside / MURMELO_INSTALLED_DATA}) {
        if (!folder.empty() && fs::is_directory(folder / "Res", error)) {
            return folder;
        }
    }
    return {};
}

}  // namespace

std::string
ProgramFolders::find(const std::string& home, const std::string& config, HostFolders& folders) {
    const fs::path data = dataFolder();
    if (data.empty()) {
        return "the folder with the pictures, \"Res\", is missing: it is sought in MURMELO_DATA, "
               "beside the "
               "program, and where it is installed";
    }
    std::error_code error;
    folders.res = fs::canonical(data / "Res", error).string();
    folders.framework = fs::canonical(data / "framework", error).string();
    const std::string wanted = chosenHome(home);
    if (wanted.empty()) {
        return "there is no home folder: neither --home nor MURMELO_HOME nor HOME is set";
    }
    error.clear();
    fs::create_directories(wanted, error);
    if (!error) {
        folders.home = fs::canonical(wanted, error).string();
    }
    if (error) {
        return "the home folder \"" + wanted + "\" cannot be made: " + error.message();
    }
    folders.config =
        !config.empty() ? config : xdgFolder("XDG_CONFIG_HOME", ".config") + "/murmelo";
    return "";
}

int64_t ProgramFolders::freeBytes(const std::string& folder) {
    struct statvfs facts {};

    if (::statvfs(folder.c_str(), &facts) != 0) {
        return -1;
    }
    return static_cast<int64_t>(facts.f_bavail) * static_cast<int64_t>(facts.f_frsize);
}

HomeLock::~HomeLock() {
    if (isHeld && isStillAt(path)) {
        ::unlink(path.c_str());
    }
    if (file >= 0) {
        ::close(file);
    }
}

std::string HomeLock::take(const std::string& home) {
    path = home + "/" + kLockName;
    // Once more when another program took its lock away between the opening and the locking.
    while (!isHeld) {
        if (file >= 0) {
            ::close(file);
        }
        file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        // An old lock can still be opened where nothing new can be made.
        if (file < 0 || ::access(home.c_str(), W_OK) != 0) {
            return "the home folder \"" + home + "\" cannot be written: " + lastError();
        }
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            return errno == EWOULDBLOCK
                       ? "Murmelo is already running with the home folder \"" + home + "\""
                       : "the home folder \"" + home + "\" cannot be locked: " + lastError();
        }
        isHeld = isStillAt(path);
    }
    return "";
}

bool HomeLock::isStillAt(const std::string& place) const {
    struct stat mine {};

    struct stat there {};

    return ::fstat(file, &mine) == 0 && ::stat(place.c_str(), &there) == 0 &&
           mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}
