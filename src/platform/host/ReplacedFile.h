// SPDX-License-Identifier: MIT
// A small file that is always complete: either the old one or the new one, even if the writing is
// interrupted.
#pragma once

#include <string>

class ReplacedFile {
public:
    /// Writes the text beside the file, onto the disk, and puts it in the file's place; makes the
    /// folder if it is missing. A symbolic link stays: the file that it leads to is replaced.
    /// False if that failed: the file is as it was, or it is the new one and a power cut may still
    /// bring back the old one.
    static bool write(const std::string& path, const std::string& text);
};
