// SPDX-License-Identifier: MIT
#include "ScreenPicture.h"

#include "SafeFile.h"

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr int32_t kMaxPictures = 100000;

/// Renames to the first name in the folder that is still free. False: errno says why.
bool renameToFirstFree(const std::string& fresh, const std::string& folder, std::string& path) {
    for (int32_t number = 0; number < kMaxPictures; number++) {
        char name[32];
        std::snprintf(name, sizeof name, "/screen_%05d.png", number);
        if (SafeFile::renameToFree(fresh, folder + name)) {
            path = folder + name;
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

}  // namespace

Problem ScreenPicture::write(const std::string& folder,
                             const std::vector<uint8_t>& png,
                             std::string& path) {
    // No check here: without the folder the file cannot be made, and that error is reported.
    static_cast<void>(SafeFile::makeFolders(folder));
    std::string fresh;
    const int file = SafeFile::createBeside(folder + "/screen.png", fresh);
    if (file < 0) {
        return SafeFile::lastError();
    }
    Problem problem;
    if (!SafeFile::writeAll(file, png.data(), png.size())) {
        problem = SafeFile::lastError();
    }
    const bool isOnDisk = SafeFile::finish(file);
    if (!problem && (!isOnDisk || !renameToFirstFree(fresh, folder, path))) {
        problem = SafeFile::lastError();
    }
    if (problem) {
        ::unlink(fresh.c_str());
        return problem;
    }
    SafeFile::syncFolderOf(path);
    return problem;
}
