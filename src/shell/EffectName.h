// SPDX-License-Identifier: MIT
// How an effect is named on the command line.
#pragma once

#include <cstdint>
#include <string>

class EffectName {
public:
    /// The effect of that name, in large or small letters, or of that number in the catalogue
    /// (0 is none, 1 the robot); -1 if there is none.
    static int32_t find(const std::string& text);

    /// The name most similar to a text that find() does not know; empty if none is similar.
    static std::string nearest(const std::string& text);
};
