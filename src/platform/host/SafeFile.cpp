// SPDX-License-Identifier: MIT
#include "SafeFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // before the umask
constexpr int kMaxLinks = 40;          // as many as Linux follows; more are a circle
constexpr int kMaxAside = 100000;      // numbers to try
constexpr int kMaxBeside = 1000;
constexpr mode_t kPermissionBits = 07777;

bool liesAt(const std::string& path) {
    struct stat facts = {};
    return ::lstat(path.c_str(), &facts) == 0;
}

/// Makes an empty file (or folder) with that name. False if something has the name.
bool takeName(const std::string& name, bool forFolder) {
    if (forFolder) {
        return ::mkdir(name.c_str(), SafeFile::kUsualFolder) == 0;
    }
    const int fd =
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kNewFileMode);
    return fd >= 0 && ::close(fd) == 0;
}

}  // namespace

std::string SafeFile::realTarget(const std::string& path) {
    fs::path target = path;
    for (int links = 0; links < kMaxLinks; links++) {
        std::error_code error;
        const fs::path next = fs::read_symlink(target, error);
        if (error) {
            return target.string();  // not a link, or there is nothing
        }
        target = target.parent_path() / next;  // "/" replaces the parent if next is absolute
    }
    return path;
}

int SafeFile::create(const std::string& path) {
    struct stat facts = {};
    const bool isThere = ::lstat(path.c_str(), &facts) == 0;
    if (isThere && S_ISREG(facts.st_mode)) {
        ::unlink(path.c_str());
    } else if (isThere && !moveAside(path)) {
        return -1;
    }
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kNewFileMode);
}

int SafeFile::createBeside(const std::string& target, std::string& fresh) {
    struct stat facts = {};
    const bool replaces = ::stat(target.c_str(), &facts) == 0;
    // No other user may open the file before it has the target's permissions.
    const mode_t mode = replaces ? S_IRUSR | S_IWUSR : kNewFileMode;
    const std::string start =
        (fs::path(target).parent_path() / ".murmelo-").string() + std::to_string(::getpid()) + "-";
    for (int number = 1; number <= kMaxBeside; number++) {
        const std::string name = start + std::to_string(number);
        const int fd =
            ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
        if (fd >= 0) {
            keepMode(fd, target);
            fresh = name;
            return fd;
        }
        if (errno != EEXIST) {
            return -1;
        }
    }
    return -1;
}

void SafeFile::keepMode(int fd, const std::string& old) {
    struct stat facts = {};
    if (::stat(old.c_str(), &facts) == 0) {
        static_cast<void>(::fchmod(fd, facts.st_mode & kPermissionBits));
    }
}

bool SafeFile::writeAll(int fd, const void* bytes, size_t count) {
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(fd, next, count);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            errno = written == 0 ? EIO : errno;
            return false;
        }
        next += written;
        count -= static_cast<size_t>(written);
    }
    return true;
}

bool SafeFile::sync(int fd) {
    return ::fsync(fd) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

bool SafeFile::finish(int fd) {
    const bool synced = ::fsync(fd) == 0;
    const int reason = errno;
    const bool closed = ::close(fd) == 0;
    if (!synced) {
        errno = reason;
    }
    return synced && closed;
}

bool SafeFile::replace(const std::string& from, const std::string& to) {
    return over(from, to) && syncFolderOf(to);
}

bool SafeFile::renameToFree(const std::string& from,
                            const std::string& to,
                            Step inOneStep,
                            Step overEmpty) {
    if (inOneStep(from, to)) {
        return true;
    }
    struct stat facts = {};
    if (errno == EEXIST || ::lstat(from.c_str(), &facts) != 0 ||
        !takeName(to, S_ISDIR(facts.st_mode))) {
        return false;  // the other way would fail with the same error
    }
    if (overEmpty(from, to)) {
        return true;
    }
    const int reason = errno;
    std::remove(to.c_str());  // do not leave the empty file
    errno = reason;
    return false;
}

bool SafeFile::atOnce([[maybe_unused]] const std::string& from,
                      [[maybe_unused]] const std::string& to) {
#ifdef RENAME_NOREPLACE
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
#else
    errno = ENOSYS;
    return false;
#endif
}

bool SafeFile::over(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool SafeFile::syncFolderOf(const std::string& path) {
    const fs::path parent = fs::path(path).parent_path();
    const int folder =
        ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) {
        return errno == EACCES;
    }
    const bool synced = sync(folder);
    const int reason = errno;
    ::close(folder);
    errno = reason;
    return synced;
}

bool SafeFile::makeFolders(const std::string& folder, mode_t mode) {
    const fs::path given = folder;
    const fs::path path = given.has_filename() ? given : given.parent_path();  // "a/" is "a"
    struct stat facts = {};
    if (::stat(path.c_str(), &facts) == 0) {
        errno = EEXIST;
        return S_ISDIR(facts.st_mode);
    }
    const fs::path parent = path.parent_path();
    if (errno != ENOENT || (!parent.empty() && parent != path && !makeFolders(parent.string()))) {
        return false;
    }
    // EEXIST: another program may just have made the same folder.
    return (::mkdir(path.c_str(), mode) == 0 || errno == EEXIST) && syncFolderOf(path.string());
}

bool SafeFile::moveAside(const std::string& path, std::string* newName) {
    if (newName != nullptr) {
        newName->clear();
    }
    for (int number = 1; number <= kMaxAside; number++) {
        if (!liesAt(path)) {
            return errno == ENOENT;
        }
        const std::string aside = path + ".aside-" + std::to_string(number);
        if (renameToFree(path, aside)) {
            if (newName != nullptr) {
                *newName = aside;
            }
            return true;
        }
        if (errno != EEXIST && errno != ENOENT) {
            return false;
        }
    }
    return false;
}

bool SafeFile::isOfDisk(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG || error == EIO || error == EROFS;
}

Problem SafeFile::whyNotOrdinary(const std::string& path) {
    struct stat facts = {};
    if (::stat(path.c_str(), &facts) != 0 || S_ISREG(facts.st_mode)) {
        return Problem::none();
    }
    if (S_ISDIR(facts.st_mode)) {
        return "is a folder";
    }
    return S_ISFIFO(facts.st_mode) ? "is a pipe" : "is a device";
}

std::string SafeFile::lastError() {
    return std::error_code(errno, std::generic_category()).message();
}
