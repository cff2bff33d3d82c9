// SPDX-License-Identifier: MIT
#include "InputFile.h"

#include "SafeFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// A pipe that never ends must not fill the disk. This is more than the longest sound for any
// effect.
constexpr int64_t kMaxPipedBytes = int64_t{1} << 30;
constexpr size_t kBlockBytes = 1 << 16;

int64_t readSome(int fd, std::vector<char>& block) {
    ssize_t got = -1;
    do {
        got = read(fd, block.data(), block.size());
    } while (got < 0 && errno == EINTR);
    return got;
}

}  // namespace

InputFile::~InputFile() {
    if (fd >= 0) {
        close(fd);
    }
}

bool InputFile::open(const std::string& path) {
    const bool standard = path == kStandard;
    const int opened =
        standard ? dup(STDIN_FILENO) : ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (opened < 0) {
        return reportError("cannot be opened", errno);
    }
    fd = opened;
    struct stat facts = {};
    if (fstat(fd, &facts) != 0) {
        return reportError("cannot be read", errno);
    }
    if (S_ISDIR(facts.st_mode)) {
        return reportError("cannot be read", EISDIR);
    }
    // Standard input is copied too, even if it is a file: it is shared with the caller, so its
    // position must not be moved.
    if (standard || !S_ISREG(facts.st_mode)) {
        piped = true;
        return keep(opened);
    }
    sizeBytes = facts.st_size;
    return true;
}

// Reads the pipe to its end into a file without a name, and uses that file instead of the pipe.
bool InputFile::keep(int pipe) {
    std::FILE* file = std::tmpfile();
    const int kept = file != nullptr ? dup(fileno(file)) : -1;
    const int error = errno;
    if (file != nullptr) {
        std::fclose(file);
    }
    if (kept < 0) {
        return reportError("cannot be kept in a temporary file", error);
    }
    fd = kept;
    std::vector<char> block(kBlockBytes);
    int64_t got = readSome(pipe, block);
    while (got > 0 && sizeBytes + got <= kMaxPipedBytes &&
           SafeFile::writeAll(kept, block.data(), static_cast<size_t>(got))) {
        sizeBytes += got;
        got = readSome(pipe, block);
    }
    const int stopped = errno;
    close(pipe);
    if (got < 0) {
        return reportError("cannot be read", stopped);
    }
    if (got > 0 && sizeBytes + got > kMaxPipedBytes) {
        errorText = "the pipe delivered more than 1 GiB, more than any effect can use";
        return false;
    }
    if (got > 0 || lseek(kept, 0, SEEK_SET) != 0) {
        return reportError("cannot be kept in a temporary file", got > 0 ? stopped : errno);
    }
    return true;
}

int64_t InputFile::readAt(void* bytes, int64_t count, int64_t offset) const {
    int64_t done = 0;
    while (done < count) {
        const ssize_t got =
            pread(fd, static_cast<char*>(bytes) + done, static_cast<size_t>(count - done),
                  static_cast<off_t>(offset + done));
        if (got < 0 && errno != EINTR) {
            return -1;
        }
        if (got == 0) {
            break;
        }
        done += got > 0 ? got : 0;
    }
    return done;
}

bool InputFile::reportError(const std::string& what, int number) {
    errorText = what + ": " + std::strerror(number);
    return false;
}
