// SPDX-License-Identifier: MIT
// The texts around the phone's picture, in the program's languages.
#pragma once

#include "Languages.h"

#include <array>
#include <string>
#include <vector>

class HostWords {
public:
    struct Row {
        const char* name;
        std::array<const char*, Languages::kCount> texts;  // UTF-8

        /// A missing translation does not compile.
        template <typename... Text>

        // NOLINTNEXTLINE(google-explicit-constructor): a row of a table
        requires(sizeof...(Text) == Languages::kCount) constexpr Row(const char* name,
                                                                     Text... texts)
            : name(name)
            , texts{texts...} {}
    };

    static const std::vector<Row>& rows();

    /// The row's text in that language ("de"); in English if the language is unknown.
    static const char* text(const Row& row, const std::string& language);

    /// The text with that name; empty if there is none.
    static const char* text(const std::string& name, const std::string& language);

    /// A reason in that language if it is one of the program's own; any other text unchanged.
    /// @param english  as the code gives it
    static std::string reason(const std::string& english, const std::string& language);
};
