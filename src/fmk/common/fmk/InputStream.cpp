// SPDX-License-Identifier: MIT
#include "InputStream.h"

#include "ArrFunc.h"

int32_t InputStream::read(signed char* bytes) {
    return read(bytes, 0, length(bytes));
}

int32_t InputStream::read(signed char* bytes, int32_t off, int32_t len) {
    const int32_t wanted = elementsInRange(bytes, off, len);
    for (int32_t i = 0; i < wanted; i++) {
        const int32_t byte = read();
        if (byte < 0) {
            return i > 0 ? i : -1;
        }
        bytes[off + i] = static_cast<signed char>(byte);
    }
    return wanted;
}

int32_t InputStream::skip(int32_t n) {
    int32_t skipped = 0;
    while (skipped < n && read() >= 0) {
        skipped++;
    }
    return skipped;
}
