// SPDX-License-Identifier: MIT
// Helpers on lists; so far the lists need none.
#pragma once

#include "ClassLife.h"

class VectorUtils : public ClassLife {};
