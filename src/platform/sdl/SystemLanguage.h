// SPDX-License-Identifier: MIT
// The language of the user's system.
#pragma once

#include <cstdint>
#include <string>

class SystemLanguage {
public:
    /// The variables of the environment that say it; empty: not set.
    struct Environment {
        std::string language;  // LANGUAGE: a list, the preferred one first
        std::string all;       // LC_ALL
        std::string messages;  // LC_MESSAGES
        std::string lang;      // LANG
    };

    static Environment environment();

    /// Index in Languages::kAll; 0 (English) if the program does not have the language.
    static int32_t indexOf(const Environment& environment);
};
