// SPDX-License-Identifier: MIT
#include "OutputStream.h"

#include "ArrFunc.h"

void OutputStream::write(signed char* bytes) {
    write(bytes, 0, length(bytes));
}

void OutputStream::write(signed char* bytes, int32_t off, int32_t len) {
    const int32_t count = elementsInRange(bytes, off, len);
    for (int32_t i = 0; i < count; i++) {
        write(bytes[off + i]);
    }
}
