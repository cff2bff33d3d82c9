// SPDX-License-Identifier: MIT
#include "TextRows.h"

namespace {

constexpr const char* kEllipsis = "\u2026";

bool isInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Index of the first byte of the next character.
size_t after(const std::string& text, size_t at) {
    at++;
    while (at < text.size() && isInsideCharacter(text[at])) {
        at++;
    }
    return at;
}

/// Length in bytes of the longest beginning of the text that fits into the row; at least one
/// character.
size_t fitting(const std::string& text, int32_t widthPx, const TextRows::Width& widthOf) {
    size_t end = after(text, 0);
    while (end < text.size() && widthOf(text.substr(0, after(text, end))) <= widthPx) {
        end = after(text, end);
    }
    return end;
}

/// Whether the word around this place is a path: "Input/output" is none.
bool isInPath(const std::string& text, size_t at) {
    const size_t gap = text.rfind(' ', at);
    const size_t start = gap == std::string::npos ? 0 : gap + 1;
    const size_t slash = text.find('/', start);
    const size_t next = slash == std::string::npos ? slash : text.find('/', slash + 1);
    return next < text.find(' ', at);
}

/// Where to break a row that may reach to end at most.
/// @param isSplit  the text goes on with the rest of a path
size_t breakBefore(const std::string& text, size_t end, bool isSplit) {
    const size_t restOfPath = isSplit ? text.find(' ') : 0;
    for (size_t at = end; at > 0; at--) {
        const bool isSpace = at < text.size() && text[at] == ' ';
        const bool isAfterSlash = text[at - 1] == '/' && at > 1 && text[at - 2] != '~';
        if (isSpace || (isAfterSlash && (at <= restOfPath || isInPath(text, at - 1)))) {
            return at;
        }
    }
    return end;
}

std::string withoutSpaces(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first);
}

/// If the last row has one word, moves the last word of the row above to it, unless that row would
/// keep less than two words.
/// @param isSplit  true: the last row continues a path of the row above, without a space
void moveLastWordDown(std::string& above,
                      std::string& last,
                      bool isSplit,
                      int32_t widthPx,
                      const TextRows::Width& widthOf) {
    const size_t gap = above.rfind(' ');
    if (last.find(' ') != std::string::npos || gap == std::string::npos || gap == 0 ||
        above.rfind(' ', gap - 1) == std::string::npos) {
        return;
    }
    const std::string together = above.substr(gap + 1) + (isSplit ? "" : " ") + last;
    if (widthOf(together) <= widthPx) {
        last = together;
        above.erase(gap);
    }
}

}  // namespace

std::vector<std::string> TextRows::wrap(const std::string& text,
                                        int32_t firstPx,
                                        int32_t widthPx,
                                        size_t maxRows,
                                        const Width& widthOf) {
    std::vector<std::string> rows;
    std::string rest = withoutSpaces(text);
    bool isSplit = false;
    while (!rest.empty()) {
        const int32_t rowPx = rows.empty() ? firstPx : widthPx;
        if (widthOf(rest) <= rowPx) {
            rows.push_back(rest);
            if (rows.size() > 1) {
                moveLastWordDown(rows[rows.size() - 2], rows.back(), isSplit, widthPx, widthOf);
            }
            break;
        }
        if (rows.size() + 1 == maxRows) {
            rows.push_back(cut(rest, rowPx, widthOf));
            break;
        }
        const size_t end = breakBefore(rest, fitting(rest, rowPx, widthOf), isSplit);
        rows.push_back(rest.substr(0, end));
        isSplit = rest[end] != ' ';
        rest = withoutSpaces(rest.substr(end));
    }
    return rows;
}

std::string TextRows::cut(const std::string& text, int32_t widthPx, const Width& widthOf) {
    if (text.empty() || widthOf(text) <= widthPx) {
        return text;
    }
    size_t end = fitting(text, widthPx, widthOf);
    while (end > 1 && widthOf(text.substr(0, end) + kEllipsis) > widthPx) {
        end--;
        while (end > 1 && isInsideCharacter(text[end])) {
            end--;
        }
    }
    return text.substr(0, end) + kEllipsis;
}

std::string TextRows::cutPath(const std::string& path, int32_t widthPx, const Width& widthOf) {
    if (path.empty() || widthOf(path) <= widthPx) {
        return path;
    }
    const size_t slash = path.rfind('/');
    size_t tail = slash != std::string::npos ? slash : 0;
    while (tail < path.size() && widthOf(path.substr(tail)) > widthPx * 2 / 3) {
        tail = after(path, tail);
    }
    const std::string end = kEllipsis + path.substr(tail);
    size_t head = 0;
    while (head < tail && widthOf(path.substr(0, after(path, head)) + end) <= widthPx) {
        head = after(path, head);
    }
    return path.substr(0, head) + end;
}
