// SPDX-License-Identifier: MIT
// The same ids for an edition with European texts only. There is no such edition: no text is
// registered, and every id is 0.
#pragma once

#include "ClassLife.h"
#include "TextIds.h"

class StrEU : public TextIds<StrEU>, public ClassLife {
public:
};
