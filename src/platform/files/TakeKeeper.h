// SPDX-License-Identifier: MIT
// Decides when to keep a take as the last take: a recording at once, a take from a file only when
// the program deletes it. Until then the recording before that file can be brought back. A take
// that the disk refuses stays in memory, and is tried again when the program deletes it.
#pragma once

#include "HostMessage.h"
#include "LastTake.h"
#include "Problem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class TakeKeeper {
public:
    /// @param sentence  in English, with the file's name
    using Report = std::function<void(const HostMessage& message, const std::string& sentence)>;

    /// Runs LastTake::syncToDisk() on another thread, and calls synced() with what it returns.
    using Later = std::function<void(std::function<Problem()> sync)>;

    /// @param folder    as for LastTake
    /// @param report    called each time that a take could not be kept, or not whole
    /// @param later     empty: the keeper itself waits for the disk
    TakeKeeper(std::string folder, Report report, Later later = {});

    /// A recording has ended.
    /// @param samples  empty: it is the program's take, but is not to be kept
    void recorded(const std::vector<int16_t>& samples);

    /// A sound from a file has become the take.
    void used(std::vector<int16_t> samples);

    /// The program deletes its take, because a recording is offered. Its own files are gone: a disk
    /// that was full may have room now.
    void takeDeleted();

    /// The program has ended: as takeDeleted(). If the disk is still too full, also if only
    /// synced() finds that out, keeps the beginning of the take in place of the earlier one.
    void end();

    /// Handles what LastTake::syncToDisk() has returned. Tells it if the take is not kept.
    void synced(const Problem& problem);

    /// Reads the last take. Use broughtBack() once it is the program's.
    Problem bringBack(std::vector<int16_t>& samples) const { return last.bringBack(samples); }

    /// A copy to read the last take with on another thread.
    LastTake lastTake() const { return last; }

    /// The last take is the program's again.
    void broughtBack();

    /// Deletes the last take; if the current one came from a file, does not keep that either.
    Problem forget();

    bool isThere() const { return last.isThere(); }

    /// True if the last take is the one that the program has, or had before it deleted it; false if
    /// it is an earlier one.
    bool isPrograms() const { return isNewest && fromFile.empty() && last.isThere(); }

private:
    void keep(const std::vector<int16_t>& samples);
    Problem write(const std::vector<int16_t>& samples);
    std::vector<int16_t> toLetGo();
    void refused(const Problem& problem);
    void keepWhatFits(const Problem& problem);
    void tellWhatFits();
    void reportError(const Problem& problem);

    LastTake last;
    Report report;
    Later later;
    bool cuts = false;      // true: the end has come, and of this take a beginning is enough
    size_t whole = 0;       // samples of the take whose beginning is kept
    size_t beginning = 0;   // samples of that beginning; 0: none is being kept
    bool isNewest = false;  // the program's newest take is kept, or will be by takeDeleted()
    // The program's take if it came from a file and is not kept yet; else empty.
    std::vector<int16_t> fromFile;
};
