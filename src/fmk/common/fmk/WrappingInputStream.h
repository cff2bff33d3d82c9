// SPDX-License-Identifier: MIT
// A stream that passes every call on to another stream.
#pragma once

#include "InputStream.h"

class WrappingInputStream : public InputStream {
public:
    /// @param in  not owned; must outlive this stream
    explicit WrappingInputStream(InputStream* in)
        : in(in) {}

    int32_t available() override { return in->available(); }

    void close() override { in->close(); }

    void mark(int32_t readLimit) override { in->mark(readLimit); }

    bool markSupported() override { return in->markSupported(); }

    int32_t read() override { return in->read(); }

    int32_t read(signed char* bytes) override { return in->read(bytes); }

    int32_t read(signed char* bytes, int32_t off, int32_t len) override {
        return in->read(bytes, off, len);
    }

    bool hasFailed() override { return in->hasFailed(); }

    void reset() override { in->reset(); }

    int32_t skip(int32_t n) override { return in->skip(n); }

    void disposeBufferData() override { in->disposeBufferData(); }

private:
    InputStream* in;
};
