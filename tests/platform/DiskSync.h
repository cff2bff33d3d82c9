// SPDX-License-Identifier: MIT
// Replaces the system's fsync() in this test program: notes what was synced, and can refuse it.
#pragma once

#include <set>
#include <string>
#include <sys/types.h>

class DiskSync {
public:
    /// Paths of all files and folders that were synced.
    static std::set<std::string> synced;

    /// Files with more bytes cannot be synced, because the disk is full; -1: all can.
    static off_t roomBytes;
};

/// While an object exists, a full disk takes every write, and refuses larger files at the sync.
class FullAtSync {
public:
    explicit FullAtSync(off_t bytes) { DiskSync::roomBytes = bytes; }

    ~FullAtSync() { DiskSync::roomBytes = -1; }
};
