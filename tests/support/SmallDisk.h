// SPDX-License-Identifier: MIT
// A file system of its own, small enough to be full soon. Only root can have one.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/mount.h>
#include <sys/statvfs.h>

class SmallDisk {
public:
    static constexpr const char* kSize = "size=400k";

    /// Mounts it on this folder, which is made if it is missing.
    explicit SmallDisk(const std::string& folder)
        : folder(folder) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        mounted = ::mount("none", folder.c_str(), "tmpfs", 0, kSize) == 0;
    }

    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    ~SmallDisk() {
        if (mounted) {
            ::umount2(folder.c_str(), MNT_DETACH);
        }
    }

    bool isMounted() const { return mounted; }

    /// Writes a file that leaves this many bytes, rounded down to whole blocks.
    void fill(size_t leftBytes) const {
        struct statvfs facts = {};
        ::statvfs(folder.c_str(), &facts);
        const size_t freeBytes = static_cast<size_t>(facts.f_bavail) * facts.f_bsize;
        std::ofstream(folder + "/filler") << std::string(freeBytes - leftBytes, 'x');
    }

private:
    std::string folder;
    bool mounted = false;
};
