// SPDX-License-Identifier: MIT
// Stores the name of the microphone that the user has chosen, for later starts.
#pragma once

#include "Problem.h"

#include <string>

class MicrophoneMemory {
public:
    /// @param folder  of the settings; empty: nothing is remembered
    explicit MicrophoneMemory(const std::string& folder);

    /// The stored name; empty: the system's default.
    std::string read() const;

    /// @returns why it cannot be stored
    Problem write(const std::string& name) const;

private:
    std::string path;
};
