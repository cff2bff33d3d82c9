// SPDX-License-Identifier: MIT
// The line that every program prints for a mistake on its command line.
#pragma once

#include <string>

/// "PROGRAM: sentence (see PROGRAM --help)", with the end of the line.
inline std::string usageError(const std::string& program, const std::string& sentence) {
    return program + ": " + sentence + " (see " + program + " --help)\n";
}
