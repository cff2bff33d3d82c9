// SPDX-License-Identifier: MIT
// Reads numbers and texts, most significant byte first, from another stream.
//
// If the stream ends within a value, the missing bytes count as 0; a text that is cut short is
// null.
#pragma once

#include "WrappingInputStream.h"

class DataInputStream : public WrappingInputStream {
public:
    using WrappingInputStream::WrappingInputStream;

    bool readBoolean();
    signed char readByte();
    int32_t readUnsignedByte();
    int16_t readShort();
    int32_t readUnsignedShort();
    char16_t readChar();
    int32_t readInt();

    /// Two 32-bit words; the first, high one is dropped.
    int32_t readLong();
    float readFloat();
    double readDouble();

    /// Reads until the whole range is filled or the stream ends.
    void readFully(signed char* bytes);
    void readFully(signed char* bytes, int32_t off, int32_t len);

    int32_t skipBytes(int32_t n) { return skip(n); }

    /// A new text, the caller deletes it; null if it is damaged or cut short. Only the low 8 bits
    /// of each character are kept.
    Osp::Base::String* readUTF();

private:
    int32_t readUpTo(signed char* bytes, int32_t off, int32_t len);
};
