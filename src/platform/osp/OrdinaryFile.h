// SPDX-License-Identifier: MIT
// Opens ordinary files of the real file system.
#pragma once

#include <unistd.h>
#include <utility>

namespace Osp::Io {

class RealPath;

/// Closes a file descriptor at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int fd)
        : fd(fd) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (fd >= 0) {
            close(fd);
        }
    }

    int get() const { return fd; }

    int release() { return std::exchange(fd, -1); }

private:
    int fd;
};

/// Opens an ordinary file; -1 for everything else (open() would accept a folder for reading, and a
/// pipe would wait for its other end). Below the writable roots a symbolic link at the end of the
/// path is not followed: RealPath has resolved it already.
/// @param flags  of open(); a new file gets the usual mode, 0666 before the umask
int openOrdinary(const RealPath& path, int flags);

}  // namespace Osp::Io
