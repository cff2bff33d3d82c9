// SPDX-License-Identifier: MIT
// A file in memory that has a path, so that a parser of files can read it without a disk.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

class MemoryFile {
public:
    MemoryFile()
        : file(memfd_create("input", MFD_CLOEXEC)) {
        if (file < 0) {
            std::abort();
        }
    }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    ~MemoryFile() { close(file); }

    /// Replaces everything in it.
    void fill(const uint8_t* data, size_t size) const {
        if (ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }

    std::string path() const { return "/proc/self/fd/" + std::to_string(file); }

private:
    int file;
};
