// SPDX-License-Identifier: MIT
// Finds an effect by its name on the command line.
#pragma once

#include <cstdint>
#include <string>

class EffectName {
public:
    /// Index in the catalogue of the effect with that name (in upper or lower case) or that number
    /// (0 is none, 1 the robot); -1 if there is none.
    static int32_t find(const std::string& text);

    /// The name most similar to a text that find() does not know; empty if none is similar.
    static std::string nearest(const std::string& text);
};
