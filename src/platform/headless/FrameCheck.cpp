// SPDX-License-Identifier: MIT
#include "FrameCheck.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr int32_t kFactor = HostFrame::kCanvasFactor;
constexpr ptrdiff_t kWidthPx = HostFrame::kWidthPx;
constexpr int32_t kStrideBytes = HostFrame::kWidthPx * static_cast<int32_t>(sizeof(uint16_t));
constexpr int32_t kFramesPerLook = 3;  // every third frame is skipped, as by a busy window

bool shows(const std::vector<uint16_t>& display, const std::vector<uint16_t>& canvas) {
    const auto row = [&](int32_t y) { return display.begin() + y * kWidthPx; };
    for (int32_t y = HostFrame::kCanvasTopPx; y < HostFrame::kHeightPx; y += kFactor) {
        const auto painted =
            canvas.begin() + (y - HostFrame::kCanvasTopPx) / kFactor * (kWidthPx / kFactor);
        for (int32_t x = 0; x < kWidthPx; x++) {
            if (row(y)[x] != painted[x / kFactor]) {
                return false;
            }
        }
        if (!std::equal(row(y), row(y + 1), row(y + 1))) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool FrameCheck::isRight(HostFrame& phones, HostFrame& shown, const std::vector<uint16_t>& canvas) {
    const size_t pixels = static_cast<size_t>(kWidthPx) * HostFrame::kHeightPx;
    whole.assign(pixels, 0);
    phones.compose(whole.data(), kStrideBytes);
    const bool showsCanvas = shows(whole, canvas);
    if (&shown != &phones) {
        shown.compose(whole.data(), kStrideBytes);
    }
    const bool looks = byChanges.empty() || count % kFramesPerLook != 0;
    if (looks) {
        byChanges.resize(pixels);
        shown.composeRows(byChanges.data(), kStrideBytes, shown.takeChanges());
    }
    count++;
    return showsCanvas && (!looks || byChanges == whole);
}
