// SPDX-License-Identifier: MIT
// Writes pictures of the screen that the user takes, into the folder of sounds.
#pragma once

#include "Problem.h"

#include <cstdint>
#include <string>
#include <vector>

class ScreenPicture {
public:
    /// Writes a picture under the first free name of "screen_00000.png", "screen_00001.png" and so
    /// on: whole, or not at all.
    /// @param folder  made if it is missing
    /// @param png     the file's bytes
    /// @param path    of the new file; untouched on an error
    /// @returns what is wrong
    static Problem
    write(const std::string& folder, const std::vector<uint8_t>& png, std::string& path);
};
