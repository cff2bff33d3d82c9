// SPDX-License-Identifier: MIT
// Bytes of a test as a stream of the runtime.
#pragma once

#include "ArrFunc.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"

#include <initializer_list>
#include <vector>

/// A stream over the given bytes; frees them at the end.
class ByteSource : public ByteArrayInputStream {
public:
    ByteSource(std::initializer_list<int32_t> bytes)
        : ByteArrayInputStream(arrayOf(bytes)) {}

    ~ByteSource() override { disposeBufferData(); }

    static signed char* arrayOf(std::initializer_list<int32_t> bytes) {
        auto* array = newArray<signed char>(static_cast<int32_t>(bytes.size()));
        int32_t i = 0;
        for (const int32_t byte : bytes) {
            array[i++] = static_cast<signed char>(byte);
        }
        return array;
    }
};

/// What was written so far, without signs.
inline std::vector<int32_t> bytesOf(ByteArrayOutputStream& stream) {
    signed char* array = stream.toByteArray();
    std::vector<int32_t> bytes;
    for (int32_t i = 0; i < length(array); i++) {
        bytes.push_back(static_cast<unsigned char>(array[i]));
    }
    deleteArrFunc(array);
    return bytes;
}
