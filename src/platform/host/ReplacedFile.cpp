// SPDX-License-Identifier: MIT
#include "ReplacedFile.h"

#include "SafeFile.h"

#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

bool ReplacedFile::write(const std::string& path, const std::string& text) {
    const std::string target = SafeFile::realTarget(path);
    // No check here: without the folder the file cannot be made, and that error is reported.
    static_cast<void>(SafeFile::makeFolders(fs::path(target).parent_path().string()));
    const std::string fresh = target + ".new";
    const int fd = SafeFile::create(fresh);
    if (fd < 0) {
        return false;
    }
    SafeFile::keepMode(fd, target);
    const bool written = SafeFile::writeAll(fd, text.data(), text.size());
    if (SafeFile::finish(fd) && written && SafeFile::replace(fresh, target)) {
        return true;
    }
    ::unlink(fresh.c_str());
    return false;
}
