// SPDX-License-Identifier: MIT
// A block of bytes with a position and a limit. The phone's sound devices fill such blocks, and its
// files write them.
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

    /// Number of bytes from the position to the limit.
    int32_t GetRemaining() const { return limit - position; }

    /// Fails without a change if it is greater than the limit.
    result SetPosition(int32_t newPosition);

    /// Fails without a change if it is greater than the capacity. A position after the new limit
    /// moves back to it.
    result SetLimit(int32_t newLimit);

    /// Sets the position to 0 and the limit to the capacity; the content stays.
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

    /// Takes memory, filled with zeros; the limit is the capacity. Call it once for each object.
    result Construct(int32_t capacityBytes);

    /// Copies the other's bytes from its position to its limit. After this the position is at the
    /// first copied byte and the limit after the last one. Fails without a change if they do not
    /// fit.
    result CopyFrom(const ByteBuffer& other);

    unsigned char* GetPointer() { return bytes.data(); }

    const unsigned char* GetPointer() const { return bytes.data(); }

private:
    std::vector<unsigned char> bytes;
};

}  // namespace Osp::Base
