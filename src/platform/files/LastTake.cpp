// SPDX-License-Identifier: MIT
#include "LastTake.h"

#include "HostSound.h"
#include "SafeFile.h"
#include "SoundFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kOwnFolder = 0700;  // only this user may read recordings
constexpr mode_t kOwnFile = 0600;
constexpr const char* kName = "/last-take.wav";
constexpr const char* kNextName = "/last-take.wav.next";  // complete, but not synced yet
constexpr const char* kNewName = "/last-take.wav.new-";   // followed by the process number

constexpr const char* kBeforeReason = "\": ";

constexpr off_t kHeaderBytes = 44;
constexpr off_t kSampleBytes = 2;
constexpr size_t kBlockSamples = 2048;  // of a disk's block

/// Removes unfinished files of programs that were killed while they wrote. Files of running
/// programs stay: programs with different homes share the folder.
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

bool isFile(const std::string& path) {
    std::error_code error;
    return !path.empty() && fs::is_regular_file(path, error);
}

bool isOfFullDisk(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

/// Empties a file that the disk had no room for, and lowers count to the number of samples for
/// which there was room. False if there was room for none.
bool makeShorter(int file, size_t& count) {
    struct stat facts = {};
    if (::fstat(file, &facts) != 0 || ::ftruncate(file, 0) != 0 ||
        ::lseek(file, 0, SEEK_SET) != 0) {
        return false;
    }
    const off_t bytes = std::max<off_t>(facts.st_size - kHeaderBytes, 0);
    const auto taken = static_cast<size_t>(bytes / kSampleBytes);
    // If what it took does not fit a second time: a block less.
    count = taken < count ? taken : count - std::min(count, kBlockSamples);
    return count > 0;
}

/// If something other than an ordinary file has this name, it gets another one.
void makeWay(const std::string& path) {
    if (SafeFile::whyNotOrdinary(path)) {
        SafeFile::moveAside(path);
    }
}

/// True if the name still belongs to the open file.
bool hasName(int file, const std::string& path) {
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

LastTake::LastTake(std::string givenFolder)
    : folder(std::move(givenFolder))
    , path(folder.empty() ? "" : folder + kName)
    , newPath(folder.empty() ? "" : folder + kNextName) {}

std::string LastTake::reasonOf(const Problem& problem) {
    const std::string& sentence = problem.sentence();
    const size_t at = sentence.rfind(kBeforeReason);  // the last one: a folder's name may have it
    return at == std::string::npos ? sentence
                                   : sentence.substr(at + std::string(kBeforeReason).size());
}

bool LastTake::isThere() const {
    return shared->isWaiting || isFile(newPath) || isFile(path);
}

std::vector<int16_t> LastTake::waiting() const {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    return shared->isWaiting ? shared->samples : std::vector<int16_t>();
}

Problem LastTake::keep(const std::vector<int16_t>& samples) const {
    Problem problem = write(samples);
    return problem ? problem : syncToDisk();
}

/// The error that errno tells. @param what "in FOLDER" or "as PATH", with the first quotation mark
Problem LastTake::notKept(const std::string& what) const {
    shared->error = errno;
    return "the last take cannot be kept " + what + kBeforeReason + SafeFile::lastError();
}

Problem LastTake::notKept() const {
    return notKept("as \"" + path);
}

/// A limit on the size of files counts too: it has the same effect.
bool LastTake::isDiskFull() const {
    return shared->isWaiting && isOfFullDisk(shared->error);
}

/// Name of the file that is not complete yet.
std::string LastTake::fresh() const {
    return folder + kNewName + std::to_string(::getpid());
}

Problem LastTake::writeSamples(int file, const std::vector<int16_t>& samples, size_t count) const {
    errno = 0;
    Problem problem = SoundFile::write(file, fresh(), HostMicrophone::kRateHz, samples.data(),
                                       count, SoundFile::Format::kWav);
    if (problem && SafeFile::isOfDisk(errno)) {
        return notKept();  // without the unfinished file's name
    }
    return problem ? Problem("the last take cannot be kept as \"" + path + kBeforeReason +
                             SoundFile::kNotWhole)
                   : problem;
}

/// True if it has made the folder. False: the folder is there already, or cannot be made; then the
/// file in it cannot be made either, and that error is reported.
bool LastTake::makeFolder() const {
    std::error_code error;
    fs::create_directories(fs::path(folder).parent_path(), error);
    return ::mkdir(folder.c_str(), kOwnFolder) == 0;
}

Problem LastTake::write(const std::vector<int16_t>& samples) const {
    if (path.empty() || samples.empty()) {
        return Problem::none();
    }
    const std::lock_guard<std::mutex> lock(shared->mutex);
    size_t count = samples.size();
    Problem problem = writeFile(samples, count, false);
    if (!problem) {
        problem = nameNext();
    }
    shared->samples = samples;
    shared->isWaiting = static_cast<bool>(problem);
    return problem;
}

Problem LastTake::writeWhatFits(size_t& count) const {
    const std::lock_guard<std::mutex> lock(shared->mutex);
    const size_t wanted = std::min(count, shared->samples.size());
    count = wanted;
    Problem problem = writeFile(shared->samples, count, true);
    if (!problem) {
        problem = nameNext();
    }
    // A limit on the size of a file leaves no more room without the earlier take.
    if ((problem || count < wanted) && shared->error != EFBIG && isOfFullDisk(shared->error)) {
        if (problem) {
            count = 0;
            ::unlink(newPath.c_str());
        }
        ::unlink(SafeFile::realTarget(path).c_str());
        size_t more = wanted;
        Problem second = writeFile(shared->samples, more, true);
        if (!second && more > count) {
            second = nameNext();
            count = second ? count : more;
        }
        ::unlink(fresh().c_str());
        problem = problem ? second : problem;
    }
    shared->isWaiting = static_cast<bool>(problem);
    return problem;
}

/// Writes the samples to the file fresh(), which is there only if this succeeds.
/// @param count   number of samples to write; becomes that of the samples that are written
/// @param mayCut  true: if the disk is full, writes fewer
Problem LastTake::writeFile(const std::vector<int16_t>& samples, size_t& count, bool mayCut) const {
    shared->error = 0;
    shared->isFolderNew = makeFolder() || shared->isFolderNew;
    removeLeftovers(folder);
    const int file = SafeFile::create(fresh());
    if (file < 0) {
        return notKept("in \"" + folder);
    }
    static_cast<void>(::fchmod(file, kOwnFile));  // some disks have no permissions
    count = std::min(count, static_cast<size_t>(kMaxSamples));
    Problem problem = writeSamples(file, samples, count);
    while (problem && mayCut && isOfFullDisk(shared->error) && makeShorter(file, count)) {
        problem = writeSamples(file, samples, count);
    }
    if (::close(file) != 0 && !problem) {
        problem = notKept();
    }
    if (problem) {
        ::unlink(fresh().c_str());
    }
    return problem;
}

/// Makes the file fresh() the newest take. If that fails, the file is deleted.
Problem LastTake::nameNext() const {
    makeWay(newPath);
    if (SafeFile::over(fresh(), newPath)) {
        return Problem::none();
    }
    Problem problem = notKept();
    ::unlink(fresh().c_str());
    return problem;
}

Problem LastTake::syncToDisk() const {
    const int file =
        newPath.empty() ? -1 : ::open(newPath.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (file < 0) {
        return Problem::none();  // synced already, or deleted by forget()
    }
    const bool isOnDisk = SafeFile::sync(file);
    const int error = errno;
    const std::string target = SafeFile::realTarget(path);
    Problem problem = Problem::none();
    bool isRenamed = false;
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        if (!hasName(file, newPath)) {
            ::close(file);
            return Problem::none();  // a newer take has taken its place
        }
        errno = error;
        if (isOnDisk) {
            makeWay(target);
            isRenamed = SafeFile::over(newPath, target);
        }
        if (isRenamed) {
            if (!shared->isWaiting) {
                shared->samples.clear();
            }
        } else {
            problem = notKept();
            ::unlink(newPath.c_str());
            shared->isWaiting = !shared->samples.empty();
        }
    }
    ::close(file);
    if (isRenamed && !syncFolders(target)) {
        problem = notKept();
    }
    return problem;
}

bool LastTake::isPending() const {
    return !newPath.empty() && ::access(newPath.c_str(), F_OK) == 0;
}

bool LastTake::syncFolders(const std::string& target) const {
    if (!SafeFile::syncFolderOf(target)) {
        return false;
    }
    bool isFolderNew = false;
    {
        const std::lock_guard<std::mutex> lock(shared->mutex);
        isFolderNew = std::exchange(shared->isFolderNew, false);
    }
    bool isSynced = true;
    for (fs::path made = folder; isFolderNew && made.has_relative_path();
         made = made.parent_path()) {
        isSynced = SafeFile::syncFolderOf(made.string()) && isSynced;
    }
    return isSynced;
}

Problem LastTake::bringBack(std::vector<int16_t>& samples) const {
    std::vector<int16_t> newest = waiting();
    if (!newest.empty()) {
        samples = std::move(newest);
        return Problem::none();
    }
    // After a power cut the newest file may be there without its samples.
    if (isFile(newPath) &&
        !SoundFile::read(newPath, HostMicrophone::kRateHz, kMaxSamples, newest) &&
        !newest.empty()) {
        samples = std::move(newest);
        return Problem::none();
    }
    if (!isThere()) {
        return "there is no last take";
    }
    return SoundFile::read(path, HostMicrophone::kRateHz, kMaxSamples, samples);
}

Problem LastTake::forget() const {
    const std::string target = SafeFile::realTarget(path);
    const std::lock_guard<std::mutex> lock(shared->mutex);
    shared->isWaiting = false;
    shared->samples.clear();
    if (!isThere()) {
        return Problem::none();
    }
    const bool isNewGone = ::unlink(newPath.c_str()) == 0 || errno == ENOENT;
    const bool isGone = ::unlink(target.c_str()) == 0 || errno == ENOENT;
    if (!isNewGone || !isGone || !SafeFile::syncFolderOf(target)) {
        return "the last take cannot be deleted as \"" + path + kBeforeReason +
               SafeFile::lastError();
    }
    return Problem::none();
}
