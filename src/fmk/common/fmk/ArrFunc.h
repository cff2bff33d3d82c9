// SPDX-License-Identifier: MIT
// Counted arrays: a 32-bit header word stands directly before element 0, so that an array knows its
// length.
//
// Low 24 bits of the header: element count. Bit 24: the elements are counted arrays themselves.
// Element 0 is aligned to 16 bytes; the padding that this needs lies before the header, never
// between it and element 0. The memory is zero-filled, unless a function says otherwise. The
// creator of an array frees it with deleteArrFunc.
#pragma once

#include <cassert>
#include <cstdint>
#include <cstring>

/// Largest element count that the header can hold.
constexpr int32_t kMaxArrayLength = 0xFFFFFF;
constexpr uint32_t kArrayLengthMask = kMaxArrayLength;

/// A new zero-filled array of bytes / elemSize elements (at most kMaxArrayLength; the caller checks
/// sizes from outside). file and line name the calling place, for a debugger.
void* newArrFunc(int32_t bytes, int32_t elemSize, const char* file, int32_t line);

/// The same with uninitialised elements; the caller writes all of them.
void* newArrFuncToFill(int32_t bytes, int32_t elemSize);

/// Two levels: an outer array of bytes0 / 4 pointers, each to a new array of bytes1 bytes. Callers
/// always count 4 bytes for a row; the outer block has room for real pointers, which may be larger.
void* newArrFunc(int32_t bytes0, int32_t bytes1, int32_t elemSize, const char* file, int32_t line);

/// Three levels, in the same way.
void* newArrFunc(int32_t bytes0,
                 int32_t bytes1,
                 int32_t bytes2,
                 int32_t elemSize,
                 const char* file,
                 int32_t line);

/// Frees an array and, where it is an array of arrays, every inner one. Null does nothing.
void deleteArrFunc(void* array);

/// Marks an array as one whose elements are counted arrays, owned by it.
void markAsMultiDimensionalArray(void* array);

/// Element count of a counted array; 0 for null.
inline int32_t length(const void* array) {
    if (array == nullptr) {
        return 0;
    }
    uint32_t header = 0;
    std::memcpy(&header, static_cast<const char*>(array) - sizeof header, sizeof header);
    return static_cast<int32_t>(header & kArrayLengthMask);
}

/// How many of the len elements from off on lie inside a counted array; 0 for null, and if off lies
/// outside. Streams use it, so that a length from a file never leads past the end of an array.
inline int32_t elementsInRange(const void* array, int32_t off, int32_t len) {
    if (off < 0 || len <= 0 || off >= length(array)) {
        return 0;
    }
    const int32_t available = length(array) - off;
    return len < available ? len : available;
}

/// A new zero-filled array of count elements of T (a plain number or a pointer).
template <typename T>
T* newArray(int32_t count, const char* file = __builtin_FILE(), int32_t line = __builtin_LINE()) {
    assert(count >= 0 && count <= kMaxArrayLength);
    // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer, where pointers are the elements
    constexpr auto kElemSize = static_cast<int32_t>(sizeof(T));
    return static_cast<T*>(newArrFunc(count * kElemSize, kElemSize, file, line));
}

/// The same with uninitialised elements; the caller writes all of them.
template <typename T>
T* newArrayToFill(int32_t count) {
    assert(count >= 0 && count <= kMaxArrayLength);
    // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer, where pointers are the elements
    constexpr auto kElemSize = static_cast<int32_t>(sizeof(T));
    return static_cast<T*>(newArrFuncToFill(count * kElemSize, kElemSize));
}
