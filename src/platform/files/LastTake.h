// SPDX-License-Identifier: MIT
// Keeps the last take, before any effect, in a file, so that no mistake, crash or power cut loses
// it. It is kept until the next take replaces it or the user deletes it.
#pragma once

#include "Problem.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class LastTake {
public:
    /// More than any recording has: the longest take, and the minute of samples that may wait in a
    /// microphone.
    static constexpr int64_t kMaxSamples = int64_t{80} * 16000;

    /// @param folder  made when a take is kept, for this user only; empty: nothing is kept
    explicit LastTake(std::string folder);

    /// Writes the take to the disk in place of the earlier one. At any moment one of them is there,
    /// complete. Does nothing without a sample or without a folder.
    /// @param samples  16 kHz mono
    /// @returns why it could not be kept; then the file of the earlier one is still there, and this
    ///          object and its copies keep the take in memory, as waiting()
    Problem keep(const std::vector<int16_t>& samples) const;

    /// The first half of keep(), which does not wait for the disk: writes the take into a file of
    /// its own. From now on this is the last take, however the program ends; only after a power cut
    /// before syncToDisk() it is the take before.
    /// @returns as keep()
    Problem write(const std::vector<int16_t>& samples) const;

    /// The second half of keep(), which waits for the disk. May run on another thread; a take that
    /// is written meanwhile is left to the next call.
    /// @returns as keep()
    Problem syncToDisk() const;

    /// True if a take is written and not synced yet.
    bool isPending() const;

    /// True if a full disk was the reason why waiting() could not be kept.
    bool isDiskFull() const;

    /// For the end of the program: writes as much of waiting() as the disk has room for, from its
    /// beginning. If that is not all, the file of the earlier take is deleted to make room, but
    /// only once the part that fits beside it is written. Call syncToDisk() next.
    /// @param count  how many samples to write at most; becomes the number that is in the file
    /// @returns as keep()
    Problem writeWhatFits(size_t& count) const;

    /// Returns the reason in a sentence that keep(), write(), syncToDisk() or forget() has
    /// returned, without the file's name.
    static std::string reasonOf(const Problem& problem);

    /// The take that could not be kept, to try again: it is the last take, but is lost when the
    /// program ends. Empty: there is none.
    std::vector<int16_t> waiting() const;

    /// Reads the take; the file stays.
    /// @param samples  16 kHz mono; untouched on an error
    /// @returns why it cannot be read; a problem too if there is no take
    Problem bringBack(std::vector<int16_t>& samples) const;

    /// Deletes the take and its file, and syncs that to the disk.
    /// @returns why it could not be deleted; no problem if there is no take
    Problem forget() const;

    bool isThere() const;

private:
    Problem notKept(const std::string& what) const;
    Problem notKept() const;
    Problem writeFile(const std::vector<int16_t>& samples, size_t& count, bool mayCut) const;
    Problem nameNext() const;
    std::string fresh() const;
    Problem writeSamples(int file, const std::vector<int16_t>& samples, size_t count) const;
    bool makeFolder() const;
    bool syncFolders(const std::string& target) const;

    std::string folder;
    std::string path;     // of the WAV file; empty: nothing is kept
    std::string newPath;  // of the file that is written but not synced yet

    struct Shared {
        std::mutex mutex;                    // held while files are renamed
        bool isFolderNew = false;            // the folder's name may not be synced yet
        std::vector<int16_t> samples;        // of the newest take until it is synced
        std::atomic<bool> isWaiting{false};  // true: no file holds these samples
        std::atomic<int> error{0};           // errno of the last failure
    };

    std::shared_ptr<Shared> shared = std::make_shared<Shared>();  // by the copies of this object
};
