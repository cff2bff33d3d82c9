// SPDX-License-Identifier: MIT
// Names of files as desktops hand them over: "file:///home/ada/a%20voice.wav".
#pragma once

#include "Problem.h"

#include <string>

class FileUri {
public:
    /// The path of a file's address; anything else is a path already and comes back as it is.
    /// @param path  untouched on an error
    /// @returns what is wrong: the file lies on another computer, or the address is no address
    static Problem toPath(const std::string& nameOrUri, std::string& path);

    /// The name of a file without its folders; all of the path if it has none.
    static std::string nameIn(const std::string& path);

    /// The address of a file. @param path  absolute
    static std::string fromPath(const std::string& path);
};
