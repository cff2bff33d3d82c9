// SPDX-License-Identifier: MIT
// Stores the name of the microphone that the user has chosen, for later starts.
#pragma once

#include "Problem.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

class MicrophoneMemory {
public:
    /// @param folder  of the settings; empty: nothing is remembered
    explicit MicrophoneMemory(const std::string& folder);

    /// The stored name; empty: the system's default.
    std::string read() const;

    /// Returns the work of storing a name, for another thread. It waits for the disk, and does
    /// nothing if a newer name is to be stored. It returns the bare reason why that failed.
    std::function<Problem()> storing(const std::string& name);

private:
    struct Shared {
        std::atomic<int64_t> newest{0};  // number of the newest name
        std::mutex writing;
    };

    std::string path;
    std::shared_ptr<Shared> shared = std::make_shared<Shared>();  // with the work
};
