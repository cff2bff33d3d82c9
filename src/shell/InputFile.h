// A file to read from, one that can be read twice: what comes through a pipe is kept in a temporary
// file first.
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

    /// Opens a file, or takes in all of a pipe. False: complaint() says why.
    bool open(const std::string& path);

    /// Fills up to count bytes from an offset on; returns how many are there, -1 on an error.
    int64_t readAt(void* bytes, int64_t count, int64_t offset) const;

    int64_t size() const { return sizeBytes; }

    /// The open file; stays this object's.
    int descriptor() const { return fd; }

    /// True if the bytes came through a pipe: the path does not lead to them any more.
    bool isPiped() const { return piped; }

    const std::string& complaint() const { return wrong; }

private:
    bool keep(int pipe);
    bool complain(const std::string& what, int error);

    int fd = -1;
    int64_t sizeBytes = 0;
    bool piped = false;
    std::string wrong;
};
