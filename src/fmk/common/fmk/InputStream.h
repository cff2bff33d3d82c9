// SPDX-License-Identifier: MIT
// A source of bytes. Reading never waits: if no byte is there at once, the stream has ended.
#pragma once

#include "GnoObject.h"

class InputStream : public GnoObject {
public:
    /// Bytes that can be read now.
    virtual int32_t available() { return 0; }

    virtual void close() {}

    virtual void mark(int32_t /*readLimit*/) {}

    virtual bool markSupported() { return false; }

    /// The next byte as 0..255, -1 at the end.
    virtual int32_t read() = 0;

    /// Fills a counted array from its start.
    virtual int32_t read(signed char* bytes);

    /// Reads up to len bytes to bytes[off] and on, never past the end of the counted array. Returns
    /// how many were read; -1 if the end came before the first.
    virtual int32_t read(signed char* bytes, int32_t off, int32_t len);

    virtual void reset() {}

    /// Skips up to n bytes; returns how many were skipped.
    virtual int32_t skip(int32_t n);

    /// Frees the memory that the stream reads from, if it reads from memory.
    virtual void disposeBufferData() {}

    /// True once reading has failed; then -1 does not mean the real end.
    virtual bool hasFailed() { return false; }
};
