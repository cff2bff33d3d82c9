// SPDX-License-Identifier: MIT
// One line on standard error that says how far the work is. Shows nothing if standard error is no
// terminal.
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

    /// Shows the line again, at most a few times a second. done of total is the share of the step
    /// that is done.
    void show(const char* step, int64_t done, int64_t total);

    /// Erases the line, so that other text can be written.
    void clear();

private:
    bool onTerminal;
    bool shown = false;
    std::string title;
    std::chrono::steady_clock::time_point nextTime;
};
