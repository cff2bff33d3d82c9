// SPDX-License-Identifier: MIT
// Numbers and characters in counted arrays of bytes.
#pragma once

#include <cstdint>

class Utils {
public:
    /// Writes four bytes, most significant first, and returns 4. Writes nothing if they do not fit
    /// into the array.
    static int32_t putInt(int32_t value, signed char* bytes, int32_t off);

    /// The four bytes at off, most significant first; 0 if they are not all in the array.
    static int32_t getInt(const signed char* bytes, int32_t off);

    /// Convert a range of a counted array (or as much of it as there is) to a new counted array,
    /// which the caller frees. A character becomes the byte of its low 8 bits, a byte a character
    /// from 0 to 255.
    static signed char* charToByteArray(const char16_t* characters, int32_t off, int32_t len);
    static char16_t* byteToCharArray(const signed char* bytes, int32_t off, int32_t len);
};
