// SPDX-License-Identifier: MIT
#include "Utils.h"

#include "Arithmetic.h"
#include "ArrFunc.h"

namespace {

constexpr int32_t kIntBytes = 4;

}  // namespace

int32_t Utils::putInt(int32_t value, signed char* bytes, int32_t off) {
    if (elementsInRange(bytes, off, kIntBytes) == kIntBytes) {
        for (int32_t i = 0; i < kIntBytes; i++) {
            bytes[off + i] = static_cast<signed char>(value >> (24 - 8 * i));
        }
    }
    return kIntBytes;
}

int32_t Utils::getInt(const signed char* bytes, int32_t off) {
    if (elementsInRange(bytes, off, kIntBytes) < kIntBytes) {
        return 0;
    }
    int32_t value = 0;
    for (int32_t i = 0; i < kIntBytes; i++) {
        value = wrapShl(value, 8) | static_cast<unsigned char>(bytes[off + i]);
    }
    return value;
}

signed char* Utils::charToByteArray(const char16_t* characters, int32_t off, int32_t len) {
    const int32_t count = elementsInRange(characters, off, len);
    auto* bytes = newArray<signed char>(count);
    for (int32_t i = 0; i < count; i++) {
        bytes[i] = static_cast<signed char>(characters[off + i]);
    }
    return bytes;
}

char16_t* Utils::byteToCharArray(const signed char* bytes, int32_t off, int32_t len) {
    const int32_t count = elementsInRange(bytes, off, len);
    auto* characters = newArray<char16_t>(count);
    for (int32_t i = 0; i < count; i++) {
        characters[i] = static_cast<unsigned char>(bytes[off + i]);
    }
    return characters;
}
