// SPDX-License-Identifier: MIT
// Takes the place of a stream over the network and never fetches anything.
#pragma once

#include "InputStream.h"

class HttpInputStream : public InputStream {
public:
    using InputStream::read;

    int32_t available() override { return 0; }

    int32_t read() override { return -1; }

    int32_t read(signed char* /*bytes*/, int32_t /*off*/, int32_t /*len*/) override { return -1; }
};
