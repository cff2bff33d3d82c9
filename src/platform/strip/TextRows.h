// SPDX-License-Identifier: MIT
// Breaks a text into rows of a given width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class TextRows {
public:
    /// Width of a UTF-8 text in pixels.
    using Width = std::function<int32_t(const std::string& utf8)>;

    /// Breaks at spaces, and in paths after slashes, so that these stay readable; a part that is
    /// wider than a row is cut where the row ends. What does not fit into the last row ends in an
    /// ellipsis. A last row of one word gets a second one from a row above it that has three or
    /// more.
    /// @param firstPx  width of the first row, beside which something may stand
    /// @param maxRows  at least 1
    static std::vector<std::string> wrap(const std::string& text,
                                         int32_t firstPx,
                                         int32_t widthPx,
                                         size_t maxRows,
                                         const Width& widthOf);

    /// The text, or its beginning with an ellipsis, no wider than a row.
    static std::string cut(const std::string& text, int32_t widthPx, const Width& widthOf);

    /// A path, or its beginning and its end with an ellipsis between them, no wider than that. The
    /// name of the file stays whole if it takes no more than two thirds of it.
    static std::string cutPath(const std::string& path, int32_t widthPx, const Width& widthOf);
};
