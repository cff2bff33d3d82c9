// SPDX-License-Identifier: MIT
// The same ids for an edition with European texts only. There is no such edition: nothing is
// registered, and every id is that of "nothing".
#pragma once

#include "ClassLife.h"
#include "TextIds.h"

class StrEU : public TextIds<StrEU>, public ClassLife {
public:
};
