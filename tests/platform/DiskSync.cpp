// SPDX-License-Identifier: MIT
// Replaces fsync() for tests of what happens where the disk is slow, full or loses its power.
#include "DiskSync.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

std::set<std::string> DiskSync::synced;
off_t DiskSync::roomBytes = -1;

extern "C" int fsync(int fd) {
    std::error_code error;
    DiskSync::synced.insert(
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd), error).string());
    struct stat facts = {};
    if (DiskSync::roomBytes >= 0 && ::fstat(fd, &facts) == 0 && S_ISREG(facts.st_mode) &&
        facts.st_size > DiskSync::roomBytes) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, fd));
}
