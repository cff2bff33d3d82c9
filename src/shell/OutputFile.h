// SPDX-License-Identifier: MIT
// A file that appears complete or not at all: it is written beside its target and renamed at the
// end. Until then, and after every failure, the old file stays.
#pragma once

#include <cstddef>
#include <string>

class OutputFile {
public:
    /// The name that stands for standard output.
    static constexpr const char* kStandard = "-";

    explicit OutputFile(std::string path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Removes the unfinished file, if it was not committed.
    ~OutputFile();

    /// Each of these returns false on failure; error() then says why, and the bytes written are
    /// lost. Devices and pipes are written to directly.
    bool open();
    bool write(const void* bytes, size_t count);
    bool commit();

    /// What failed first and why, to be printed after the file's name; no full stop. Empty before a
    /// failure.
    const std::string& error() const { return errorText; }

private:
    bool openBeside();
    bool reportError(const char* what, int number);
    void discard();
    static void removeOnSignals();
    static void onSignal(int signal);

    /// The name of the unfinished file, which a signal handler removes; empty if there is none.
    /// Only one file may be unfinished at a time.
    static constexpr size_t kPathBytes = 4096;
    static char unfinished[kPathBytes];

    std::string path;
    int fd = -1;
    bool beside = false;  // there is an unfinished file to rename or to remove
    std::string errorText;
};
