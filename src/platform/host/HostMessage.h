// SPDX-License-Identifier: MIT
// Something to tell the user: a row of HostWords, with what is particular about it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct HostMessage {
    /// The sentence in that language ("de"): {1}, {2} and so on of the row are replaced by the
    /// parts, {a}, {b} and so on by the numbers.
    std::string text(const std::string& language) const;

    /// 64 as "6.4" or "6,4", and 90 as "9".
    static std::string number(int64_t tenths, const std::string& language);

    const char* row = "";              // name of the row
    std::vector<std::string> parts;    // the same in every language: names of files, reasons
    std::vector<int64_t> tenths = {};  // numbers
};
