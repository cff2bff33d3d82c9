// SPDX-License-Identifier: MIT
// The browser's inflater under a name of its own, so that both can stand in one program.
#pragma once

#include <cstddef>

class InflateStb {
public:
    static void
    unpack(const unsigned char* packed, size_t packedSize, unsigned char* out, size_t outSize);
};
