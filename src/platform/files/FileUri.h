// SPDX-License-Identifier: MIT
// Converts between paths and the addresses of files that desktops use:
// "file:///home/ada/a%20voice.wav".
#pragma once

#include "Problem.h"

#include <string>

class FileUri {
public:
    /// The path for a file's address. Anything else is taken for a path and returned unchanged.
    /// @param path  untouched on an error
    /// @returns the problem without the address: "it lies on another computer", or that it is
    /// malformed
    static Problem toPath(const std::string& nameOrUri, std::string& path);

    /// The name of a file without its folders; all of the path if it has none.
    static std::string nameIn(const std::string& path);

    /// The address for a path. @param path absolute
    static std::string fromPath(const std::string& path);
};
