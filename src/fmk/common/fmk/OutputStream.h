// SPDX-License-Identifier: MIT
// A destination for bytes.
#pragma once

#include "GnoObject.h"

class OutputStream : public GnoObject {
public:
    virtual void close() {}

    virtual void write(signed char byte) = 0;

    /// Writes a whole counted array.
    virtual void write(signed char* bytes);

    /// Writes bytes[off] .. bytes[off + len - 1], as far as the counted array reaches.
    virtual void write(signed char* bytes, int32_t off, int32_t len);

    virtual void flush() {}

    /// True once a byte could not be written. Writing itself reports nothing: the caller checks
    /// this at the end.
    virtual bool hasFailed() { return false; }
};
