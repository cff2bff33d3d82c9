// SPDX-License-Identifier: MIT
#include "ByteArrayInputStream.h"

#include "ArrFunc.h"

#include <algorithm>

ByteArrayInputStream::ByteArrayInputStream(signed char* bytes)
    : ByteArrayInputStream(bytes, 0, length(bytes)) {}

ByteArrayInputStream::ByteArrayInputStream(signed char* bytes, int32_t off, int32_t len)
    : bytes(bytes)
    , position(std::clamp(off, 0, length(bytes)))
    , end(position + elementsInRange(bytes, off, len)) {}

int32_t ByteArrayInputStream::read() {
    return position < end ? static_cast<unsigned char>(bytes[position++]) : -1;
}

int32_t ByteArrayInputStream::read(signed char* target, int32_t off, int32_t len) {
    const int32_t wanted = elementsInRange(target, off, len);
    const int32_t count = std::min(wanted, available());
    if (count == 0 && wanted > 0) {
        return -1;
    }
    std::copy_n(bytes + position, count, target + off);
    position += count;
    return count;
}

int32_t ByteArrayInputStream::skip(int32_t n) {
    const int32_t skipped = std::clamp(n, 0, available());
    position += skipped;
    return skipped;
}

void ByteArrayInputStream::disposeBufferData() {
    deleteArrFunc(bytes);
    bytes = nullptr;
    position = 0;
    end = 0;
}
