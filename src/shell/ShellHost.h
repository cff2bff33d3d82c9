// SPDX-License-Identifier: MIT
// The back end of a program that uses nothing of the phone but its clock.
#pragma once

#include "QuietHost.h"

#include <chrono>
#include <optional>

/// Installs itself for its lifetime.
class ShellHost : public QuietHost {
public:
    /// @param seed  the time, in ms, that the clock always shows: effects that seed their noise
    /// with the clock make the same noise in every run. Without a seed it is the real clock.
    explicit ShellHost(std::optional<int32_t> seed)
        : seed(seed) {
        install(this);
    }

    ~ShellHost() override { install(nullptr); }

    int64_t uptimeMs() override { return ticksMs(); }

    int64_t ticksMs() override {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return seed ? *seed : std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    }

private:
    std::optional<int32_t> seed;
};
