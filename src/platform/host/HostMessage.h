// SPDX-License-Identifier: MIT
// A message for the user: a row of HostWords, and the names or reasons to put into it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct HostMessage {
    /// The sentence in that language ("de"), with {1}, {2} and so on replaced by the parts, and
    /// {a}, {b} and so on by the numbers.
    std::string text(const std::string& language) const;

    /// A number of tenths as text: 64 becomes "6.4" or "6,4", and 90 becomes "9".
    static std::string number(int64_t tenths, const std::string& language);

    const char* row = "";              // name of the row
    std::vector<std::string> parts;    // for {1}, {2}: names of files; reasons in English
    std::vector<int64_t> tenths = {};  // for {a}, {b}: numbers in tenths
};
