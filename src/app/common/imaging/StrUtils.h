// SPDX-License-Identifier: MIT
// Helpers on texts.
#pragma once

#include "ClassLife.h"

#include <cstdint>

namespace Osp::Base {
class String;
}

class StrUtils : public ClassLife {
public:
    /// Reads the numbers in a text, from left to right, as file names carry them: a number starts
    /// at a digit or a "-" and ends before the next character that is not a digit, which may start
    /// the next one. Returns how many there are. Deliberate: Integer::parseInt converts the digits,
    /// and it has no sign: a "-" counts as the digit -3, so "-5" is -25 and a single "-" is -3. The
    /// program's file names have no negative numbers. A hyphen in a name makes the count wrong, so
    /// that the picture is not placed and the mistake is seen.
    /// @param numbers  a counted array; numbers beyond its length are counted but not stored
    static int32_t parseInts(Osp::Base::String* text, int32_t* numbers);
};
