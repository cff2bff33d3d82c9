// SPDX-License-Identifier: MIT
// A block of bytes with a position and a limit: what the phone's sound devices fill and its files
// write.
#pragma once

#include "OspBase.h"

#include <cstdint>
#include <vector>

namespace Osp::Base {

/// 0 <= position <= limit <= capacity, always.
class BufferBase : public Object {
public:
    int32_t GetCapacity() const { return capacity; }

    int32_t GetLimit() const { return limit; }

    int32_t GetPosition() const { return position; }

    /// From the position to the limit.
    int32_t GetRemaining() const { return limit - position; }

    /// Fails, and changes nothing, beyond the limit.
    result SetPosition(int32_t newPosition);

    /// Fails, and changes nothing, beyond the capacity. A position beyond it moves back to it.
    result SetLimit(int32_t newLimit);

    /// Position 0, limit at the capacity; what the buffer holds stays.
    void Clear();

protected:
    void setCapacity(int32_t newCapacity);

private:
    int32_t capacity = 0;
    int32_t limit = 0;
    int32_t position = 0;
};

class ByteBuffer : public BufferBase {
public:
    ByteBuffer() = default;
    ByteBuffer(const ByteBuffer&) = delete;
    ByteBuffer& operator=(const ByteBuffer&) = delete;

    /// All zero, the limit at the capacity. Once for each object.
    result Construct(int32_t capacityBytes);

    /// Copies what lies between the other's position and its limit; the position is then at the
    /// first copied byte, the limit after the last. Fails, and changes nothing, if it does not fit.
    result CopyFrom(const ByteBuffer& other);

    unsigned char* GetPointer() { return bytes.data(); }

    const unsigned char* GetPointer() const { return bytes.data(); }

private:
    std::vector<unsigned char> bytes;
};

}  // namespace Osp::Base
