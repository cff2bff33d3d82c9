// SPDX-License-Identifier: MIT
// The browser's inflater under another name, so that one program can contain both.
#pragma once

#include <cstddef>

class InflateStb {
public:
    static void
    unpack(const unsigned char* packed, size_t packedSize, unsigned char* out, size_t outSize);
};
