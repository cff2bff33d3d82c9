// The string table: every text of the program in five languages, in the order of registration.
//
// Each text has its place on the screen, and the tests measure it there: a soft key's label a third
// of the bar, an effect's name the space between the arrows, a message 180 px.
#pragma once

#include "Res.h"

#include <cstdint>

struct StrTexts {
    const char* name;  // of the id, without "str_"
    int32_t* id;       // where Str keeps it
    const char* utf8[Res::kLanguages];

    static constexpr const char* kLanguageNames[Res::kLanguages] = {"English", "Deutsch", "Español",
                                                                    "Français", "Italiano"};

    /// The whole table; count becomes the number of its rows.
    static const StrTexts* rows(int32_t& count);
};
