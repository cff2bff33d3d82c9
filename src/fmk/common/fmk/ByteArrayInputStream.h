// SPDX-License-Identifier: MIT
// Reads from a counted array of bytes, which stays the caller's until disposeBufferData().
#pragma once

#include "InputStream.h"

class ByteArrayInputStream : public InputStream {
public:
    explicit ByteArrayInputStream(signed char* bytes);

    /// Reads only this part of the array, or as much of it as the array has.
    ByteArrayInputStream(signed char* bytes, int32_t off, int32_t len);

    using InputStream::read;

    int32_t available() override { return end - position; }

    int32_t read() override;
    int32_t read(signed char* target, int32_t off, int32_t len) override;
    int32_t skip(int32_t n) override;

    /// Frees the array; the stream is at its end then.
    void disposeBufferData() override;

private:
    signed char* bytes;
    int32_t position;
    int32_t end;
};
