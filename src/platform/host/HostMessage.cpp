// SPDX-License-Identifier: MIT
#include "HostMessage.h"

#include "HostWords.h"

#include <cstddef>

std::string HostMessage::number(int64_t tenths, const std::string& language) {
    const std::string whole = std::to_string(tenths / 10);
    return tenths % 10 == 0
               ? whole
               : whole + HostWords::text("decimalPoint", language) + std::to_string(tenths % 10);
}

std::string HostMessage::text(const std::string& language) const {
    const std::string words = HostWords::text(row, language);
    std::string filled;
    for (size_t i = 0; i < words.size(); i++) {
        const bool isPlace = i + 2 < words.size() && words[i] == '{' && words[i + 2] == '}';
        // Any other character gives an index outside of both lists.
        const auto part = isPlace ? static_cast<size_t>(words[i + 1] - '1') : parts.size();
        const auto figure = isPlace ? static_cast<size_t>(words[i + 1] - 'a') : tenths.size();
        if (part < parts.size()) {
            filled += HostWords::reason(parts[part], language);
            i += 2;
        } else if (figure < tenths.size()) {
            filled += number(tenths[figure], language);
            i += 2;
        } else {
            filled += words[i];
        }
    }
    return filled;
}
