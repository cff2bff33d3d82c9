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
    /// wider than a row is cut where the row ends. If the text needs more rows, the last one ends
    /// in an ellipsis. A last row of one word gets a second one from the row above, if that has at
    /// least three.
    /// @param firstPx  width of the first row, which may be narrower
    /// @param maxRows  at least 1
    static std::vector<std::string> wrap(const std::string& text,
                                         int32_t firstPx,
                                         int32_t widthPx,
                                         size_t maxRows,
                                         const Width& widthOf);

    /// The text, or its beginning with an ellipsis, no wider than a row.
    static std::string cut(const std::string& text, int32_t widthPx, const Width& widthOf);

    /// The path, or its beginning and its end with an ellipsis between them, at most widthPx wide.
    /// The name of the file is complete if it takes at most two thirds of that.
    static std::string cutPath(const std::string& path, int32_t widthPx, const Width& widthOf);
};
