// SPDX-License-Identifier: MIT
#include "OspBuffer.h"

#include <algorithm>

namespace Osp::Base {

namespace {

constexpr int32_t kMaxBytes = 1 << 26;  // a larger request must be a mistake

}  // namespace

result BufferBase::SetPosition(int32_t newPosition) {
    if (newPosition < 0 || newPosition > limit) {
        return E_FAILURE;
    }
    position = newPosition;
    return E_SUCCESS;
}

result BufferBase::SetLimit(int32_t newLimit) {
    if (newLimit < 0 || newLimit > capacity) {
        return E_FAILURE;
    }
    limit = newLimit;
    position = std::min(position, limit);
    return E_SUCCESS;
}

void BufferBase::Clear() {
    position = 0;
    limit = capacity;
}

void BufferBase::setCapacity(int32_t newCapacity) {
    capacity = newCapacity;
    Clear();
}

result ByteBuffer::Construct(int32_t capacityBytes) {
    if (capacityBytes < 0 || capacityBytes > kMaxBytes || !bytes.empty()) {
        return E_FAILURE;
    }
    bytes.resize(static_cast<size_t>(capacityBytes));
    setCapacity(capacityBytes);
    return E_SUCCESS;
}

result ByteBuffer::CopyFrom(const ByteBuffer& other) {
    const int32_t count = other.GetRemaining();
    if (count > GetCapacity()) {
        return E_FAILURE;
    }
    std::copy_n(other.bytes.begin() + other.GetPosition(), count, bytes.begin());
    Clear();
    return SetLimit(count);
}

}  // namespace Osp::Base
