// SPDX-License-Identifier: MIT
// A small file that is always complete: either the old one or the new one, even if the writing is
// interrupted.
#pragma once

#include <string>

class ReplacedFile {
public:
    /// Writes a new file beside the old one, waits until it is on the disk, and renames it over the
    /// old one. Makes the folder if it is missing. If path is a symbolic link, the file that it
    /// leads to is replaced.
    /// False on an error: the old file is unchanged, or the new one is there but a power cut may
    /// still bring back the old one.
    static bool write(const std::string& path, const std::string& text);
};
