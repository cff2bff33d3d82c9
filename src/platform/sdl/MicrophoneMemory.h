// SPDX-License-Identifier: MIT
// The microphone that the user has chosen in the program: remembered by its name.
#pragma once

#include "Problem.h"

#include <string>

class MicrophoneMemory {
public:
    /// @param folder  of the settings; empty: nothing is remembered
    explicit MicrophoneMemory(const std::string& folder);

    /// Empty: the system's default.
    std::string read() const;

    /// @returns why it cannot be remembered
    Problem write(const std::string& name) const;

private:
    std::string path;
};
