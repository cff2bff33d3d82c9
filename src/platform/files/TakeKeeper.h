// SPDX-License-Identifier: MIT
// Decides when to keep a take as the last take: a recording at once, a take from a file only when
// the program deletes it. Until then the recording before that file can be brought back. A take
// that the disk refuses stays in memory, and is tried again when the program deletes it.
#pragma once

#include "LastTake.h"
#include "Problem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class TakeKeeper {
public:
    using ReportError = std::function<void(const Problem&)>;

    /// Runs LastTake::settle() on another thread, and reports the error that it returns.
    using Later = std::function<void(std::function<Problem()> settle)>;

    /// @param folder    as for LastTake
    /// @param reportError  called with the reason each time that a take could not be kept
    /// @param later     empty: the keeper itself waits for the disk
    TakeKeeper(std::string folder, ReportError reportError, Later later = {});

    /// A recording has ended.
    /// @param samples  empty: it is the program's take, but is not to be kept
    void recorded(const std::vector<int16_t>& samples);

    /// A sound from a file has become the take.
    void used(std::vector<int16_t> samples);

    /// The program deletes its take: a recording is offered, or the program has ended. Its own
    /// files are gone: a disk that was full may have room now.
    void letGo();

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

    LastTake last;
    ReportError reportError;
    Later later;
    bool isNewest = false;  // the program's newest take is kept, or will be by letGo()
    std::vector<int16_t>
        fromFile;  // the program's take if it came from a file and is not kept yet; else empty
};
