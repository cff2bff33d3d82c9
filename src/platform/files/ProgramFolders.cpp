// SPDX-License-Identifier: MIT
#include "ProgramFolders.h"

#include "SafeFile.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/auxv.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr const char* kLockName = ".murmelo.lock";

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The folder that an XDG variable names; if it is not set, the one named otherwise below the
/// user's home.
std::string xdgFolder(const char* variable, const char* otherwise) {
    const std::string folder = environment(variable);
    return !folder.empty() && folder[0] == '/' ? folder : environment("HOME") + "/" + otherwise;
}

std::string folderOrNone(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error) ? path : "";
}

/// The music folder that the user's desktop names in user-dirs.dirs; empty if it names none that
/// exists. If that file is missing, "Music" in the user's home.
std::string musicFolder() {
    const std::string key = "XDG_MUSIC_DIR=\"";
    const std::string names = xdgFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs";
    std::error_code missing;
    if (!fs::exists(names, missing)) {
        return environment("HOME").empty() ? "" : folderOrNone(environment("HOME") + "/Music");
    }
    if (SafeFile::whyNotOrdinary(names)) {
        return "";  // reading a pipe would wait for its writer
    }
    std::ifstream file(names);
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

/// The target of the sound folder if that is a symbolic link, even if the target does not exist
/// yet; empty if it is not a link.
std::string linkedSoundFolder(const std::string& home) {
    const std::string path = home + "/Murmelo";
    std::error_code error;
    if (!fs::is_symlink(path, error)) {
        return "";
    }
    const fs::path real = fs::canonical(path, error);
    return error ? SafeFile::realTarget(path) : real.string();
}

/// The folder of the executable, and the folder of the name by which it was started, which may be a
/// link to it.
std::array<fs::path, 2> programFolders() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): getauxval returns pointers as integers
    const auto* name = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
    const fs::path startedAs = fs::absolute(name != nullptr ? name : "", error);
    return {executable.parent_path(), startedAs.parent_path()};
}

/// The folder that holds "Res" and "framework"; empty if there is none.
fs::path dataFolder() {
    std::vector<fs::path> places = {environment("MURMELO_DATA")};
    for (const fs::path& beside : programFolders()) {
        if (!beside.empty()) {
            places.insert(places.end(), {beside, beside / MURMELO_INSTALLED_DATA});
        }
    }
    std::error_code error;
    for (const fs::path& place : places) {
        if (!place.empty() && fs::is_directory(place / "Res", error)) {
            return place;
        }
    }
    return {};
}

}  // namespace

Problem
ProgramFolders::find(const std::string& home, const std::string& config, HostFolders& folders) {
    const fs::path data = dataFolder();
    if (data.empty()) {
        return "the folder with the pictures, \"Res\", is missing: it is looked for in "
               "MURMELO_DATA, "
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
    folders.soundFolder = linkedSoundFolder(folders.home);
    folders.config =
        !config.empty() ? config : xdgFolder("XDG_CONFIG_HOME", ".config") + "/murmelo";
    if (!environment("HOME").empty() || !environment("XDG_STATE_HOME").empty()) {
        folders.state = xdgFolder("XDG_STATE_HOME", ".local/state") + "/murmelo";
    }
    return Problem::none();
}

std::string ProgramFolders::icons() {
    std::error_code error;
    const fs::path data = dataFolder();
    const fs::path besidePictures = fs::canonical(data / "Res", error).parent_path();
    for (const fs::path& folder : {data / "icons", besidePictures / "icons"}) {
        if (!data.empty() && fs::is_directory(folder, error)) {
            return folder.string();
        }
    }
    return "";
}

Problem ProgramFolders::whySoundsCannotBeKept(const HostFolders& folders) {
    const std::string folder = folders.sounds();
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return Problem::none();
    }
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        return "the sound folder \"" + folder + "\" cannot be written: " + SafeFile::lastError();
    }
    // Saving must read the folder to find the next free number.
    if (::access(folder.c_str(), R_OK) != 0) {
        return "the sound folder \"" + folder + "\" cannot be read: " + SafeFile::lastError();
    }
    return Problem::none();
}

std::string ProgramFolders::shown(const std::string& path) {
    const std::string home = environment("HOME");
    const bool isBelow = home.size() > 1 && path.compare(0, home.size(), home) == 0 &&
                         path.size() > home.size() && path[home.size()] == '/';
    return isBelow ? "~" + path.substr(home.size()) : path;
}

int64_t ProgramFolders::freeBytes(const HostFolders& folders) {
    struct statvfs facts {};

    // If the folder does not exist yet, it will lie on the disk of the folder above it.
    fs::path folder = folders.sounds();
    while (::statvfs(folder.c_str(), &facts) != 0) {
        if (!folder.has_relative_path()) {
            return -1;
        }
        folder = folder.parent_path();
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

Problem HomeLock::take(const std::string& home) {
    path = home + "/" + kLockName;
    heldByAnother = false;
    // Try again if another program removed its lock file between the opening and the locking.
    while (!isHeld) {
        if (file >= 0) {
            ::close(file);
        }
        file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
        if (!isOrdinary()) {
            return "\"" + path + "\" is not a lock file of Murmelo: remove it";
        }
        // Checks the folder too, because an old lock file can be opened in a folder that cannot be
        // written.
        if (file < 0 || ::access(home.c_str(), W_OK) != 0) {
            return "the home folder \"" + home + "\" cannot be written: " + SafeFile::lastError();
        }
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            heldByAnother = errno == EWOULDBLOCK;
            return heldByAnother
                       ? "Murmelo is already running with the home folder \"" + home + "\""
                       : "the home folder \"" + home +
                             "\" cannot be locked: " + SafeFile::lastError();
        }
        isHeld = isStillAt(path);
    }
    return Problem::none();
}

bool HomeLock::isOrdinary() const {
    const int reason = errno;

    struct stat facts {};

    // If it cannot be opened, it may be a folder, a socket or a link.
    const bool isThere =
        file >= 0 ? ::fstat(file, &facts) == 0 : ::lstat(path.c_str(), &facts) == 0;
    errno = reason;
    return isThere ? S_ISREG(facts.st_mode) : file < 0;
}

bool HomeLock::isStillAt(const std::string& place) const {
    struct stat mine {};

    struct stat there {};

    return ::fstat(file, &mine) == 0 && ::lstat(place.c_str(), &there) == 0 &&
           mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

Problem FolderLocks::take(const HostFolders& folders) {
    if (Problem problem = home.take(folders.home)) {
        return problem;
    }
    std::error_code error;
    if (!folders.soundFolder.empty()) {
        // Made now if it is missing, so that it can be locked: another home may have the same sound
        // folder. If that fails, the program reports it when it needs the folder.
        fs::create_directory(folders.soundFolder, error);
        error.clear();
    }
    const bool elsewhere = fs::is_directory(folders.soundFolder, error) &&
                           !fs::equivalent(folders.soundFolder, folders.home, error);
    // A folder that cannot be written needs no lock; the program reports it later.
    const bool usable = elsewhere && !ProgramFolders::whySoundsCannotBeKept(folders);
    return usable ? sounds.take(folders.soundFolder) : Problem::none();
}
