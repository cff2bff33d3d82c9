// SPDX-License-Identifier: MIT
// Shows the progress of the work in one line on standard error. Shows nothing if standard error is
// not a terminal.
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

    /// Begins a file: its name, its number (the first is 1) and the number of all files.
    void start(const std::string& name, size_t number, size_t count);

    /// Shows the line again, at most a few times a second. The step is done to done / total.
    void show(const char* step, int64_t done, int64_t total);

    /// Erases the line, so that other text can be written.
    void clear();

private:
    bool onTerminal;
    bool shown = false;
    std::string title;
    std::chrono::steady_clock::time_point nextTime;
};
