// The back end of a program that needs nothing of a phone but its clock.
#pragma once

#include "Host.h"

#include <chrono>
#include <optional>

/// Installs itself for its lifetime.
class ShellHost : public Host {
public:
    /// @param seed  where the clock stands, for ever: whoever takes random numbers from the clock
    /// takes the same ones in every run. Without a seed it is the real clock.
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

    void yielded() override {}

    const HostFolders& folders() override { return noFolders; }

    int64_t freePhoneBytes() override { return -1; }

    bool pump(HostListener& /*listener*/, int64_t /*timeoutMs*/) override { return false; }

    void frameShown(HostFrame* /*frame*/) override {}

private:
    std::optional<int32_t> seed;
    HostFolders noFolders;
};
