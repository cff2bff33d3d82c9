// SPDX-License-Identifier: MIT
#include "HostMessage.h"

#include "HostWords.h"

#include <cstddef>

std::string HostMessage::text(const std::string& language) const {
    const std::string words = HostWords::text(row, language);
    std::string filled;
    for (size_t i = 0; i < words.size(); i++) {
        const size_t part = i + 2 < words.size() && words[i] == '{' && words[i + 2] == '}'
                                ? static_cast<size_t>(words[i + 1] - '1')
                                : parts.size();
        if (part < parts.size()) {
            filled += parts[part];
            i += 2;
        } else {
            filled += words[i];
        }
    }
    return filled;
}
