// SPDX-License-Identifier: MIT
// Marks the rows of a picture that were written since the last clear().
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Osp::Graphics {

class RowMarks {
public:
    /// A run of neighbouring rows; none if count is 0.
    struct Run {
        int32_t first;
        int32_t count;
    };

    /// @param rows  of the picture; at first none is marked
    explicit RowMarks(int32_t rows)
        : marks(static_cast<size_t>(rows), kClean) {}

    /// Marks count rows from first on; rows outside the picture are ignored.
    void mark(int32_t first, int32_t count) {
        const int32_t begin = std::max(first, 0);
        const int32_t end = static_cast<int32_t>(
            std::min<int64_t>(int64_t{first} + count, static_cast<int64_t>(marks.size())));
        if (begin < end) {
            std::fill(marks.begin() + begin, marks.begin() + end, kWritten);
            low = std::min(low, begin);
            high = std::max(high, end);
        }
    }

    void markAll() { mark(0, static_cast<int32_t>(marks.size())); }

    bool none() const { return high == 0; }

    /// The next run of marked rows at or after row from.
    Run next(int32_t from) const {
        const auto end = marks.begin() + high;
        const auto first =
            std::find(marks.begin() + std::min(std::max(from, low), high), end, kWritten);
        const auto last = std::find(first, end, kClean);
        return {static_cast<int32_t>(first - marks.begin()), static_cast<int32_t>(last - first)};
    }

    void clear() {
        if (!none()) {
            std::fill(marks.begin() + low, marks.begin() + high, kClean);
            low = static_cast<int32_t>(marks.size());
            high = 0;
        }
    }

private:
    static constexpr uint8_t kClean = 0;
    static constexpr uint8_t kWritten = 1;

    std::vector<uint8_t> marks;
    int32_t low = static_cast<int32_t>(marks.size());  // no row before it is marked
    int32_t high = 0;                                  // nor is this row or any after it
};

}  // namespace Osp::Graphics
