// SPDX-License-Identifier: MIT
#include "ArrFunc.h"

#include <cassert>
#include <cstdlib>
#include <new>

namespace {

constexpr uint32_t kArrayOfArrays = 0x1000000;
constexpr int32_t kCallersPointerBytes = 4;  // what callers count for one row of an outer array
constexpr size_t kElement0Bytes = 16;        // padding and header together; keeps element 0 aligned

char* blockOf(void* array) {
    return static_cast<char*>(array) - kElement0Bytes;
}

uint32_t headerOf(const void* array) {
    uint32_t header = 0;
    std::memcpy(&header, static_cast<const char*>(array) - sizeof header, sizeof header);
    return header;
}

void setHeader(void* array, uint32_t header) {
    std::memcpy(static_cast<char*>(array) - sizeof header, &header, sizeof header);
}

/// @param block  of kElement0Bytes and the elements; null if there was no memory for it
void* arrayIn(void* block, uint32_t count) {
    assert(count <= kArrayLengthMask);
    if (block == nullptr) {
        throw std::bad_alloc();  // as the platform's own allocation does; it ends the program
    }
    void* array = static_cast<char*>(block) + kElement0Bytes;
    setHeader(array, count);
    return array;
}

void* newBlock(size_t bytes, uint32_t count) {
    return arrayIn(std::calloc(1, kElement0Bytes + bytes), count);
}

void** newOuterArray(int32_t bytes) {
    const auto rows = static_cast<uint32_t>(bytes / kCallersPointerBytes);
    void* array = newBlock(rows * sizeof(void*), rows);
    markAsMultiDimensionalArray(array);
    return static_cast<void**>(array);
}

}  // namespace

void* newArrFunc(int32_t bytes, int32_t elemSize, const char* /*file*/, int32_t /*line*/) {
    assert(bytes >= 0 && elemSize > 0);
    return newBlock(static_cast<size_t>(bytes), static_cast<uint32_t>(bytes / elemSize));
}

void* newArrFuncToFill(int32_t bytes, int32_t elemSize) {
    assert(bytes >= 0 && elemSize > 0);
    return arrayIn(std::malloc(kElement0Bytes + static_cast<size_t>(bytes)),
                   static_cast<uint32_t>(bytes / elemSize));
}

void* newArrFunc(int32_t bytes0, int32_t bytes1, int32_t elemSize, const char* file, int32_t line) {
    void** rows = newOuterArray(bytes0);
    for (int32_t i = 0; i < length(rows); i++) {
        rows[i] = newArrFunc(bytes1, elemSize, file, line);
    }
    return rows;
}

void* newArrFunc(int32_t bytes0,
                 int32_t bytes1,
                 int32_t bytes2,
                 int32_t elemSize,
                 const char* file,
                 int32_t line) {
    void** planes = newOuterArray(bytes0);
    for (int32_t i = 0; i < length(planes); i++) {
        planes[i] = newArrFunc(bytes1, bytes2, elemSize, file, line);
    }
    return planes;
}

void deleteArrFunc(void* array) {
    if (array == nullptr) {
        return;
    }
    if ((headerOf(array) & kArrayOfArrays) != 0) {
        void** elements = static_cast<void**>(array);
        for (int32_t i = 0; i < length(array); i++) {
            deleteArrFunc(elements[i]);
        }
    }
    std::free(blockOf(array));
}

void markAsMultiDimensionalArray(void* array) {
    setHeader(array, headerOf(array) | kArrayOfArrays);
}
