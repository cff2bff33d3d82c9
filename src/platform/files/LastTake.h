// SPDX-License-Identifier: MIT
// The raw take that was recorded last, kept beside the user's settings so that no mistake, crash or
// power cut loses it: one take, until the next one or until the user forgets it.
#pragma once

#include "Problem.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class LastTake {
public:
    /// More than any recording holds: the longest take, and the minute that a microphone lets wait.
    static constexpr int64_t kMaxSamples = int64_t{80} * 16000;

    /// @param folder  made when a take is kept, for this user only; empty: nothing is kept
    explicit LastTake(std::string folder);

    /// Puts the take onto the disk in the place of the one before: at any moment one of them is
    /// there, whole. Without a sample, or without a folder, nothing happens.
    /// @param samples  16 kHz mono
    /// @returns why it could not be kept; the earlier one is still there then
    Problem keep(const std::vector<int16_t>& samples) const;

    /// The first half of keep(), which waits for no disk: the take is whole in a file of its own.
    /// It is the last take from now on, however the program ends. Until settle() a power cut brings
    /// the one before back.
    /// @returns as keep()
    Problem write(const std::vector<int16_t>& samples) const;

    /// The second half of keep(), which may take as long as the disk does. May run on another
    /// thread; what was written meanwhile stays for the next call.
    /// @returns as keep()
    Problem settle() const;

    /// Reads the take; it stays where it is.
    /// @param samples  16 kHz mono; untouched on an error
    /// @returns why it cannot be read: a sentence also where there is none
    Problem bringBack(std::vector<int16_t>& samples) const;

    /// Deletes the take, also on the disk.
    /// @returns why it could not be deleted; none where there is no take
    Problem forget() const;

    bool isThere() const;

private:
    Problem notKept() const;
    bool makeFolder() const;
    bool syncFolders(const std::string& target) const;

    std::string folder;
    std::string path;     // of the WAV file; empty: nothing is kept
    std::string newPath;  // of the one that is written and not on the disk yet

    struct Shared {
        std::mutex mutex;          // while files get other names
        bool isFolderNew = false;  // its name may not be on the disk
    };

    std::shared_ptr<Shared> shared = std::make_shared<Shared>();  // by copies
};
