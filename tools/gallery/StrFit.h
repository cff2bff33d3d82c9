// SPDX-License-Identifier: MIT
// Measures every text of the program, in every language, at the place where it is shown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One text in one language at one place.
struct StrFit {
    std::string name;   // of the id
    const char* place;  // what was measured there
    int32_t language;
    int32_t usedPx;
    int32_t limitPx;

    bool fits() const { return usedPx <= limitPx; }

    /// Widths of labels, entries and names; for texts that wrap, the widest word and the height
    /// (of the whole message, where it has several parts). Changes the current language, and puts
    /// it back.
    /// @param medium, small  ids of the fonts
    static std::vector<StrFit> measureAll(int32_t medium, int32_t small);
};
