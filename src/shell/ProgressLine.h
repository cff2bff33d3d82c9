// One line on standard error that says how far the work is; nothing where that is no terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

class ProgressLine {
public:
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    /// What the following steps belong to: a file, and which of how many.
    void start(const std::string& name, size_t number, size_t count);

    /// Shows the line anew, a few times a second at most.
    void show(const char* step, int64_t done, int64_t total);

    /// Takes the line away, so that other text can be written.
    void clear();

private:
    bool onTerminal;
    bool shown = false;
    std::string title;
    std::chrono::steady_clock::time_point nextTime;
};
