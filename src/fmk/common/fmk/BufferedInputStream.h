// SPDX-License-Identifier: MIT
// Passes everything through to another stream: files are buffered by the platform already.
#pragma once

#include "WrappingInputStream.h"

class BufferedInputStream : public WrappingInputStream {
public:
    using WrappingInputStream::WrappingInputStream;
};
