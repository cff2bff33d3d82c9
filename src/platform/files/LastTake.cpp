// SPDX-License-Identifier: MIT
#include "LastTake.h"

#include "HostSound.h"
#include "SafeFile.h"
#include "SoundFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kOwnFolder = 0700;  // only this user may read what was spoken
constexpr mode_t kOwnFile = 0600;
constexpr const char* kName = "/last-take.wav";
constexpr const char* kNewName = "/last-take.wav.new-";  // and the number of the process

void makeFolder(const std::string& folder) {
    // The file that cannot be made says why.
    static_cast<void>(SafeFile::makeFolders(folder, kOwnFolder));
}

/// Removes the unfinished files of programs that were killed while they wrote. Those of running
/// programs stay: two homes share the folder.
void removeLeftovers(const std::string& folder) {
    const std::string start = std::string(kNewName).substr(1);
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.compare(0, start.size(), start) != 0) {
            continue;
        }
        pid_t process = 0;  // stays 0 if the name has no number
        std::from_chars(name.data() + start.size(), name.data() + name.size(), process);
        if (process > 0 && ::kill(process, 0) != 0 && errno == ESRCH) {
            ::unlink(entry.path().c_str());
        }
    }
}

}  // namespace

LastTake::LastTake(std::string givenFolder)
    : folder(std::move(givenFolder))
    , path(folder.empty() ? "" : folder + kName) {}

bool LastTake::isThere() const {
    std::error_code error;
    return !path.empty() && fs::is_regular_file(path, error);
}

Problem LastTake::keep(const std::vector<int16_t>& samples) const {
    if (path.empty() || samples.empty()) {
        return Problem::none();
    }
    makeFolder(folder);
    removeLeftovers(folder);
    const std::string fresh = folder + kNewName + std::to_string(::getpid());
    const int file = SafeFile::create(fresh);
    if (file < 0) {
        return "the last take cannot be kept in \"" + folder + "\": " + SafeFile::lastError();
    }
    static_cast<void>(::fchmod(file, kOwnFile));  // a disk without permissions refuses
    const auto count = std::min(samples.size(), static_cast<size_t>(kMaxSamples));
    Problem problem = SoundFile::write(file, fresh, HostMicrophone::kRateHz, samples.data(), count,
                                       SoundFile::Format::kWav);
    const bool isOnDisk = SafeFile::finish(file);
    const std::string target = SafeFile::realTarget(path);
    if (!problem && SafeFile::whyNotOrdinary(target)) {
        SafeFile::moveAside(target);
    }
    if (!problem && (!isOnDisk || !SafeFile::replace(fresh, target))) {
        problem = "the last take cannot be kept as \"" + path + "\": " + SafeFile::lastError();
    }
    if (problem) {
        ::unlink(fresh.c_str());
    }
    return problem;
}

Problem LastTake::bringBack(std::vector<int16_t>& samples) const {
    if (!isThere()) {
        return "there is no last take";
    }
    return SoundFile::read(path, HostMicrophone::kRateHz, kMaxSamples, samples);
}

Problem LastTake::forget() const {
    if (!isThere()) {
        return Problem::none();
    }
    const std::string target = SafeFile::realTarget(path);
    if (::unlink(target.c_str()) != 0 || !SafeFile::syncFolderOf(target)) {
        return "the last take \"" + path + "\" cannot be deleted: " + SafeFile::lastError();
    }
    return Problem::none();
}
