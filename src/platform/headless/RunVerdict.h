// How a headless run ends: its status, and what went wrong.
#pragma once

#include <cstdint>
#include <string>

class RunVerdict {
public:
    static constexpr int32_t kOk = 0;
    static constexpr int32_t kFailed = 1;  // an expectation was not met
    static constexpr int32_t kUsage = 2;   // a mistake in the script or on the command line
    static constexpr int32_t kSignalled =
        128;  // and the number of the signal that asked for the end

    /// True as long as nothing went wrong.
    bool isOk() const { return result == kOk; }

    int32_t status() const { return result; }

    /// What went wrong, with its line; empty if nothing did.
    const std::string& complaint() const { return failure; }

    /// What the script wants is not so.
    /// @param line  of the script; 0: of none
    void fail(int32_t line, const std::string& message) { settle(kFailed, line, message); }

    /// What cannot be done because the script asks for it wrongly: a file that is not there, a
    /// place that cannot be written.
    void mistake(int32_t line, const std::string& message) { settle(kUsage, line, message); }

    /// A run that was asked to end before its script did not do what the script wanted.
    void signalled(int32_t line, int signal) {
        settle(kSignalled + signal, line, "ended by signal " + std::to_string(signal));
    }

private:
    void settle(int32_t status, int32_t line, const std::string& message);

    int32_t result = kOk;
    std::string failure;
};
