// SPDX-License-Identifier: MIT
// A curve given by its points; no effect of the catalogue uses it.
#pragma once

#include "ClassLife.h"

class IntArrayCurve : public ClassLife {};
