// A file that appears whole or not at all: it is written beside its target and renamed at the end.
// Until then, and on every failure, what was there before stays.
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

    /// Throws away what was not committed.
    ~OutputFile();

    /// Each answers false on failure; complaint() then says why, and what was written is lost.
    /// Devices and pipes are written to directly.
    bool open();
    bool write(const void* bytes, size_t count);
    bool commit();

    const std::string& complaint() const { return wrong; }

private:
    bool openBeside();
    bool complain(const char* what, int error);
    void discard();
    static void removeOnSignals();
    static void onSignal(int signal);

    /// Room for the name of the unfinished file, which a signal handler removes; there is one file
    /// at a time. Empty: none.
    static constexpr size_t kPathBytes = 4096;
    static char unfinished[kPathBytes];

    std::string path;
    int fd = -1;
    bool beside = false;  // there is an unfinished file to rename or to remove
    std::string wrong;
};
