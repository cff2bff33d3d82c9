// SPDX-License-Identifier: MIT
// Something to tell the user: a row of HostWords, with what is particular about it.
#pragma once

#include <string>
#include <vector>

struct HostMessage {
    /// The sentence in that language ("de"): {1}, {2} and so on of the row are replaced by the
    /// parts.
    std::string text(const std::string& language) const;

    const char* row = "";            // name of the row
    std::vector<std::string> parts;  // the same in every language: names of files, reasons
};
