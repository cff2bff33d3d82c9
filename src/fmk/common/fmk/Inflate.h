// SPDX-License-Identifier: MIT
// Unpacks a zlib stream. Two libraries can do it: the native build uses zlib, the page stb, because
// zlib would make the page larger.
#pragma once

#include <cstddef>

class Inflate {
public:
    /// Unpacks into a buffer of outSize bytes, which were zero before. Bytes beyond it are dropped.
    /// A damaged or short stream fills the buffer as far as it could be decoded.
    /// @param packed  the stream with its two bytes of header
    static void
    unpack(const unsigned char* packed, size_t packedSize, unsigned char* out, size_t outSize);
};
