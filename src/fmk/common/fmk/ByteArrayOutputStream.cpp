// SPDX-License-Identifier: MIT
#include "ByteArrayOutputStream.h"

#include "ArrFunc.h"

#include <algorithm>

namespace {

constexpr int32_t kDefaultCapacityBytes = 32;

}  // namespace

ByteArrayOutputStream::ByteArrayOutputStream()
    : ByteArrayOutputStream(kDefaultCapacityBytes) {}

ByteArrayOutputStream::ByteArrayOutputStream(int32_t size)
    : bytes(newArray<signed char>(size)) {}

ByteArrayOutputStream::~ByteArrayOutputStream() {
    deleteArrFunc(bytes);
}

int32_t ByteArrayOutputStream::capacity() const {
    return length(bytes);
}

void ByteArrayOutputStream::write(signed char byte) {
    if (makeRoom(1)) {
        bytes[count] = byte;
        count++;
    }
}

void ByteArrayOutputStream::write(signed char* source, int32_t off, int32_t len) {
    const int32_t more = elementsInRange(source, off, len);
    if (makeRoom(more)) {
        std::copy_n(source + off, more, bytes + count);
        count += more;
    }
}

signed char* ByteArrayOutputStream::toByteArray() {
    auto* copy = newArray<signed char>(count);
    std::copy_n(bytes, count, copy);
    return copy;
}

bool ByteArrayOutputStream::makeRoom(int32_t more) {
    if (closed || more <= 0 || more > kMaxArrayLength - count) {
        failed = failed || more > 0;
        return false;
    }
    const int32_t needed = count + more;
    if (needed > capacity()) {
        // 2 * capacity <= 0x1FFFFFE: cannot overflow; the cap is what an array can hold.
        auto* grown =
            newArray<signed char>(std::min(std::max(2 * capacity(), needed), kMaxArrayLength));
        std::copy_n(bytes, count, grown);
        deleteArrFunc(bytes);
        bytes = grown;
    }
    return true;
}
