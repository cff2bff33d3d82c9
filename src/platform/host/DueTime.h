// SPDX-License-Identifier: MIT
// Times at which something is due, in milliseconds of the host's clock; kNever for what is not due.
#pragma once

#include <algorithm>
#include <cstdint>

struct DueTime {
    static constexpr int64_t kNever = -1;

    /// The earlier of both; kNever if both are.
    static int64_t earlier(int64_t aMs, int64_t bMs) {
        return aMs == kNever || bMs == kNever ? std::max(aMs, bMs) : std::min(aMs, bMs);
    }
};
