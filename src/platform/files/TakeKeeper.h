// SPDX-License-Identifier: MIT
// Decides when a take is kept: what was recorded at once, what came from a file only when the
// program lets go of it. Until then the recording that the file displaced can be brought back.
#pragma once

#include "LastTake.h"
#include "Problem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class TakeKeeper {
public:
    using Complain = std::function<void(const Problem&)>;

    /// Lets LastTake::settle() run on another thread, and complains about what it returns.
    using Later = std::function<void(std::function<Problem()> settle)>;

    /// @param folder    as for LastTake
    /// @param complain  gets every reason why a take could not be kept
    /// @param later     none: takes are on the disk at once
    TakeKeeper(std::string folder, Complain complain, Later later = {});

    /// A recording ended with this.
    void recorded(const std::vector<int16_t>& samples);

    /// This sound, from a file, became the take.
    void used(std::vector<int16_t> samples);

    /// The program deletes its take: a recording is offered, or the program has ended.
    void letGo();

    /// Reads the last take. Use broughtBack() once it is the program's.
    Problem bringBack(std::vector<int16_t>& samples) const { return last.bringBack(samples); }

    /// A copy to read the last take with on another thread.
    LastTake lastTake() const { return last; }

    /// The last take is the program's again.
    void broughtBack() { fromFile.clear(); }

    /// Deletes the last take, and keeps the current one no more if it came from a file.
    Problem forget();

    bool isThere() const { return last.isThere(); }

private:
    void keep(const std::vector<int16_t>& samples);

    LastTake last;
    Complain complain;
    Later later;
    std::vector<int16_t> fromFile;  // the program's take, not kept yet; empty: none
};
