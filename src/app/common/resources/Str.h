// SPDX-License-Identifier: MIT
// The texts of the program. Each is registered once, in all languages; the texts themselves are in
// StrTexts.
#pragma once

#include "TextIds.h"

class Str : public TextIds<Str> {
public:
    static void static_ctor();
    static void static_dtor();
};
