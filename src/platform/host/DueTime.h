// SPDX-License-Identifier: MIT
// When something is due by the host's clock, in milliseconds; some things never are.
#pragma once

#include <algorithm>
#include <cstdint>

struct DueTime {
    static constexpr int64_t kNever = -1;

    /// The earlier one; never if both are never.
    static int64_t earlier(int64_t aMs, int64_t bMs) {
        return aMs == kNever || bMs == kNever ? std::max(aMs, bMs) : std::min(aMs, bMs);
    }
};
