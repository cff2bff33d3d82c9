// SPDX-License-Identifier: MIT
// The string table: every text of the program in all its languages, in the order of registration.
//
// Each text must fit its place on the screen, which the tests measure: a soft key's label a third
// of the bar, an effect's name the space between the arrows, a message 180 px.
#pragma once

#include "Res.h"

#include <cstdint>

/// One text in every language. Leaving one out does not compile.
struct Translations {
    template <typename... Text>

    // NOLINTNEXTLINE(google-explicit-constructor): a list of texts
    requires(sizeof...(Text) == Res::kLanguages) constexpr Translations(Text... text)
        : utf8{text...} {}

    const char* utf8[Res::kLanguages] = {};
};

struct StrTexts {
    const char* name = nullptr;  // of the id, without "str_"
    int32_t* id = nullptr;       // where Str keeps it
    Translations texts;

    /// The whole table; count becomes the number of its rows.
    static const StrTexts* rows(int32_t& count);
};
