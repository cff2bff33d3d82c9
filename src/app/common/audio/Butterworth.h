// SPDX-License-Identifier: MIT
// A filter without ripple; no effect of the catalogue uses it.
#pragma once

#include "ClassLife.h"

class Butterworth : public ClassLife {};
