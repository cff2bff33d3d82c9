// SPDX-License-Identifier: MIT
// Collects bytes in memory.
#pragma once

#include "OutputStream.h"

class ByteArrayOutputStream : public OutputStream {
public:
    /// Begins with room for 32 bytes.
    ByteArrayOutputStream();

    /// @param size  bytes to have room for at first
    explicit ByteArrayOutputStream(int32_t size);
    ~ByteArrayOutputStream() override;

    using OutputStream::write;

    /// After this nothing more is written; the bytes written before stay.
    void close() override { closed = true; }

    void write(signed char byte) override;

    /// The array holds at most kMaxArrayLength bytes: a write that does not fit is left out as a
    /// whole.
    void write(signed char* source, int32_t off, int32_t len) override;

    bool hasFailed() override { return failed; }

    /// A new counted array of exactly the bytes written; the caller frees it.
    signed char* toByteArray();

    int32_t size() const { return count; }

    int32_t capacity() const;

    /// Forgets what was written.
    void reset() { count = 0; }

private:
    bool makeRoom(int32_t more);

    signed char* bytes;  // counted array, its length is the capacity
    int32_t count = 0;
    bool closed = false;
    bool failed = false;  // a write was left out
};
