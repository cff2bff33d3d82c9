// SPDX-License-Identifier: MIT
// The language of the user's system.
#pragma once

#include <cstdint>
#include <string>

class SystemLanguage {
public:
    /// What the environment says of it; empty: not set.
    struct Environment {
        std::string language;  // LANGUAGE: a list, the preferred one first
        std::string all;       // LC_ALL
        std::string messages;  // LC_MESSAGES
        std::string lang;      // LANG
    };

    static Environment environment();

    /// Place in Languages::kAll; 0, English, if the program does not speak it.
    static int32_t indexOf(const Environment& environment);
};
