// SPDX-License-Identifier: MIT
// Unpacks a zlib stream. Two libraries can do it: the native build uses zlib, the page stb, because
// zlib would make the page larger.
#pragma once

#include <cstddef>

class Inflate {
public:
    /// Unpacks into a buffer of outSize bytes, which the caller has filled with zeros. Bytes that
    /// do not fit are dropped. Of a damaged or short stream, what could be decoded is written.
    /// @param packed  the stream with its two bytes of header
    static void
    unpack(const unsigned char* packed, size_t packedSize, unsigned char* out, size_t outSize);
};
