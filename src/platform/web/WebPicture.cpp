// SPDX-License-Identifier: MIT
#include "WebPicture.h"

namespace {

constexpr int32_t kOpaque = 0xFF;

/// Four bytes in the order red, green, blue, opacity, as a word of a little-endian machine.
uint32_t toBytes(uint16_t rgb565) {
    const uint32_t rgb = HostFrame::toRgb32(rgb565);
    return uint32_t{kOpaque} << 24 | (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

}  // namespace

WebPicture::WebPicture()
    : display(static_cast<size_t>(HostFrame::kWidthPx) * HostFrame::kHeightPx)
    , pixels(static_cast<size_t>(kWidthPx) * kHeightPx) {}

WebPicture::Rows WebPicture::update(HostFrame& frame) {
    const HostFrame::Rows changed = frame.takeChanges();
    HostFrame::Rows wanted;  // the upper row of each pair of equal rows
    Rows rows{kHeightPx, -1};
    for (int32_t y = 0; y < kHeightPx; y++) {
        const auto row = static_cast<size_t>(y) * HostFrame::kCanvasFactor;
        if (changed[row]) {
            wanted.set(row);
            rows.first = rows.last < 0 ? y : rows.first;
            rows.last = y;
        }
    }
    constexpr auto kStrideBytes = static_cast<int32_t>(HostFrame::kWidthPx * sizeof(uint16_t));
    frame.composeRows(display.data(), kStrideBytes, wanted);
    for (int32_t y = rows.first; y <= rows.last; y++) {
        const ptrdiff_t row = ptrdiff_t{y} * HostFrame::kCanvasFactor;
        if (!wanted[static_cast<size_t>(row)]) {
            continue;
        }
        const uint16_t* source = display.data() + row * HostFrame::kWidthPx;
        uint32_t* target = pixels.data() + ptrdiff_t{y} * kWidthPx;
        for (ptrdiff_t x = 0; x < kWidthPx; x++) {
            target[x] = toBytes(source[x * HostFrame::kCanvasFactor]);
        }
    }
    return rows;
}
