// SPDX-License-Identifier: MIT
// The result of a headless run: its exit status, and what has failed.
#pragma once

#include <cstdint>
#include <string>

class RunVerdict {
public:
    static constexpr int32_t kOk = 0;
    static constexpr int32_t kFailed = 1;  // an expectation was not met
    static constexpr int32_t kUsage = 2;   // a mistake in the script or on the command line
    /// The number of the signal that asked for the end is added to this.
    static constexpr int32_t kSignalled = 128;

    /// True as long as nothing has failed.
    bool isOk() const { return result == kOk; }

    int32_t status() const { return result; }

    /// What has failed, with the script's line; empty if nothing has.
    const std::string& error() const { return failure; }

    /// Records that an expectation of the script was not met.
    /// @param line  of the script; 0: no line
    void fail(int32_t line, const std::string& message) { settle(kFailed, line, message); }

    /// Records a mistake in the script: a file that does not exist, a path that cannot be written.
    void mistake(int32_t line, const std::string& message) { settle(kUsage, line, message); }

    /// Records that a signal ended the run before the end of its script.
    void signalled(int32_t line, int signal) {
        settle(kSignalled + signal, line, "ended by signal " + std::to_string(signal));
    }

private:
    void settle(int32_t status, int32_t line, const std::string& message);

    int32_t result = kOk;
    std::string failure;
};
