// SPDX-License-Identifier: MIT
// Another program, run beside the test.
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

    /// How long a test waits for what takes a moment, on a machine that does much else.
    static constexpr int64_t kPatienceMs = 60000;

    /// Its exit status; -1 if it had to be killed after so long, 128 + signal if a signal ended it.
    int waitForEnd(int64_t mostMs = kPatienceMs);

    /// Of /proc: processor time in ticks of 10 ms, and how often it went to sleep, threads
    /// together.
    int64_t processorTicks() const;
    int64_t sleeps() const;

private:
    pid_t process = -1;
};
