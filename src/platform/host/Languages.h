// SPDX-License-Identifier: MIT
// The languages of the program, a row for each, in the order in which the user chooses them. With a
// new row every table of texts needs its translations: a missing one does not compile.
#pragma once

#include <cstddef>
#include <iterator>

struct Language {
    const char* code;  // as in HTML
    const char* name;  // in the language itself; UTF-8
};

class Languages {
public:
    // clang-format off
    static constexpr Language kAll[] = {
        {"en", "English"},
        {"de", "Deutsch"},
        {"es", "Español"},
        {"fr", "Français"},
        {"it", "Italiano"},
    };
    // clang-format on

    static constexpr size_t kCount = std::size(kAll);
};
