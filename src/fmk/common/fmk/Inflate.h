// Unpacks a zlib stream. Two libraries can do it; the build takes the one that its machine has:
// zlib natively, stb in the browser, where zlib would be one more thing to download.
#pragma once

#include <cstddef>

class Inflate {
public:
    /// Unpacks into a buffer of outSize bytes, which were zero before. Bytes beyond it are dropped.
    /// A damaged or short stream fills the buffer as far as it was understood.
    /// @param packed  the stream with its two bytes of header
    static void
    unpack(const unsigned char* packed, size_t packedSize, unsigned char* out, size_t outSize);
};
