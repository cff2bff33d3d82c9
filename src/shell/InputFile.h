// SPDX-License-Identifier: MIT
// A file of which any part can be read any number of times. The bytes of a pipe are first copied to
// a temporary file.
#pragma once

#include <cstdint>
#include <string>

class InputFile {
public:
    /// The name that stands for standard input.
    static constexpr const char* kStandard = "-";

    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// Opens a file, or reads a pipe to its end. Returns false on failure; error() then says why.
    bool open(const std::string& path);

    /// Reads up to count bytes from an offset on; returns how many it has read, -1 on an error.
    int64_t readAt(void* bytes, int64_t count, int64_t offset) const;

    int64_t size() const { return sizeBytes; }

    /// The descriptor of the open file; owned by this object.
    int descriptor() const { return fd; }

    /// True if the bytes came through a pipe: they cannot be read by the path again.
    bool isPiped() const { return piped; }

    /// What failed and why, to be printed after the file's name; no full stop. Empty before a
    /// failure.
    const std::string& error() const { return errorText; }

private:
    bool keep(int pipe);
    bool reportError(const std::string& what, int number);

    int fd = -1;
    int64_t sizeBytes = 0;
    bool piped = false;
    std::string errorText;
};
