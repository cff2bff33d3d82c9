// SPDX-License-Identifier: MIT
// Ordinary files of the real file system, for the services that use them.
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

/// Opens an ordinary file; -1 for everything else: a folder opens for reading as well, and a pipe
/// would wait for its other end. Below the writable roots its last part is never followed as a
/// symbolic link: that is the path's work.
/// @param flags  as open() takes them; a file that is made has the usual mode
int openOrdinary(const RealPath& path, int flags);

}  // namespace Osp::Io
