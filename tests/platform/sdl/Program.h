// SPDX-License-Identifier: MIT
// Runs another program beside the test.
#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

class Program {
public:
    /// @param output  file for its standard output; empty: the test's own
    explicit Program(const std::vector<std::string>& command, const std::string& output = "");
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Kills it if it still runs.
    ~Program();

    void send(int signal) const;

    /// How long a test waits for things that take a moment, on a busy machine.
    static constexpr int64_t kMaxWaitMs = 60000;

    /// Waits for its end. Returns its exit status, 128 + signal if a signal has ended it, or -1 if
    /// it was killed after maxMs.
    int waitForEnd(int64_t maxMs = kMaxWaitMs);

    /// From /proc, for all its threads together: processor time in ticks of 10 ms, and how often it
    /// went to sleep.
    int64_t processorTicks() const;
    int64_t sleeps() const;

private:
    pid_t process = -1;
};
