// SPDX-License-Identifier: MIT
#include "ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

// Often enough to look alive, seldom enough for a slow terminal line.
constexpr std::chrono::milliseconds kBetweenLines(80);

}  // namespace

ProgressLine::ProgressLine()
    : onTerminal(isatty(STDERR_FILENO) == 1)
    , nextTime(std::chrono::steady_clock::now()) {}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::start(const std::string& name, size_t number, size_t count) {
    title = name;
    if (count > 1) {
        title = "[" + std::to_string(number) + "/" + std::to_string(count) + "] " + name;
    }
}

void ProgressLine::show(const char* step, int64_t done, int64_t total) {
    if (!onTerminal || std::chrono::steady_clock::now() < nextTime) {
        return;
    }
    nextTime = std::chrono::steady_clock::now() + kBetweenLines;
    const int64_t percent = total > 0 ? std::clamp<int64_t>(done * 100 / total, 0, 100) : 0;
    // Erases the rest of the line after the text: the last text may have been longer.
    std::fprintf(stderr, "\r%s: %s %3d %%\033[K", title.c_str(), step, static_cast<int>(percent));
    std::fflush(stderr);
    shown = true;
}

void ProgressLine::clear() {
    if (shown) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        shown = false;
    }
}
