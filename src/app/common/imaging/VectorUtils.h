// SPDX-License-Identifier: MIT
// Would hold helpers for lists; there are none.
#pragma once

#include "ClassLife.h"

class VectorUtils : public ClassLife {};
