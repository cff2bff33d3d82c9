// SPDX-License-Identifier: MIT
// The runtime's random number generator, which always returns 0. Effects that need random numbers
// have their own generator, so that a take always sounds the same.
#pragma once

#include "GnoObject.h"

class Random : public GnoObject {
public:
    Random() = default;

    explicit Random(int32_t /*seed*/) {}

    /// Deliberate: always 0.
    int32_t nextInt() { return 0; }
};
