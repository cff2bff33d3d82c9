// SPDX-License-Identifier: MIT
#include "Inflate.h"

#include <zlib.h>

void Inflate::unpack(const unsigned char* packed,
                     size_t packedSize,
                     unsigned char* out,
                     size_t outSize) {
    auto unpacked = static_cast<uLongf>(outSize);
    uncompress(out, &unpacked, packed, static_cast<uLong>(packedSize));
}
