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

    /// Its exit status; -1 if it had to be killed after so long, 128 + signal if a signal ended it.
    int waitForEnd(int64_t mostMs);

    /// Of /proc: processor time in ticks of 10 ms, and how often it went to sleep, threads
    /// together.
    int64_t processorTicks() const;
    int64_t sleeps() const;

private:
    pid_t process = -1;
};
