// SPDX-License-Identifier: MIT
// A sound in memory: 8 kHz samples in the range of 16 bits.
#pragma once

#include "Array.h"

#include <cstdint>

/// Without an array there is no sound.
using Sound = Array<int32_t>;
