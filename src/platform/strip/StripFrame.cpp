// SPDX-License-Identifier: MIT
#include "StripFrame.h"

#include <algorithm>

namespace {

constexpr int32_t kProgramWidthPx = StripModel::kWidthPx;
constexpr int32_t kProgramRows = HostFrame::kHeightPx / HostFrame::kCanvasFactor;
constexpr int32_t kStrideBytes = kProgramWidthPx * static_cast<int32_t>(sizeof(uint16_t));

static_assert(HostFrame::kCanvasFactor == 2, "copyRow() writes two pixels for each");
static_assert(HostFrame::kWidthPx == kProgramWidthPx * HostFrame::kCanvasFactor);
static_assert(HostFrame::kCanvasTopPx == StripModel::kHeightPx * HostFrame::kCanvasFactor);
static_assert(kProgramRows == StripModel::kHeightPx + StripModel::kSheetHeightPx);

}  // namespace

void StripFrame::begin() {
    painter = std::make_unique<StripPainter>();
    model.setTextWidth([this](const std::string& utf8) { return painter->textWidth(utf8); });
}

void StripFrame::end() {
    if (painter != nullptr) {
        model.setTextWidth([](const std::string&) { return 0; });
        painter.reset();
    }
}

void StripFrame::paint() {
    if (painter == nullptr || painted == model.version()) {
        return;
    }
    paintedSheet = model.sheet() != StripModel::Sheet::kNone;
    // Memory for a sheet is allocated when the first one is painted, and then kept.
    const int32_t rows = paintedSheet ? kProgramRows : StripModel::kHeightPx;
    picture.resize(
        std::max(picture.size(), static_cast<size_t>(kProgramWidthPx) * static_cast<size_t>(rows)));
    painter->paint(model, picture.data(), kStrideBytes);
    if (paintedSheet) {
        painter->paintSheet(
            model, picture.data() + std::ptrdiff_t{kProgramWidthPx} * StripModel::kHeightPx,
            kStrideBytes);
    }
    painted = model.version();
}

void StripFrame::copyRow(uint16_t* to, int32_t y) const {
    const uint16_t* from =
        picture.data() + static_cast<size_t>(y / kCanvasFactor) * kProgramWidthPx;
    for (std::ptrdiff_t x = 0; x < kProgramWidthPx; x++) {
        const std::ptrdiff_t left = kCanvasFactor * x;
        to[left] = from[x];
        to[left + 1] = from[x];
    }
}

void StripFrame::composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) {
    if (display != nullptr) {
        display->composeRows(pixels, strideBytes, rows);
    }
    paint();
    if (picture.empty()) {
        return;
    }
    const std::ptrdiff_t stride = strideBytes / static_cast<int32_t>(sizeof(uint16_t));
    const int32_t end = paintedSheet ? HostFrame::kHeightPx : kCanvasTopPx;
    for (int32_t y = 0; y < end; y++) {
        if (rows.test(static_cast<size_t>(y))) {
            copyRow(pixels + y * stride, y);
        }
    }
}

HostFrame::Rows StripFrame::takeChanges() {
    Rows changed = display != nullptr ? display->takeChanges() : Rows();
    if (painter == nullptr) {
        return changed;
    }
    paint();
    if (lookedAt == painted) {
        return changed;
    }
    lookedAt = painted;
    const bool isAllNew = seen.size() != picture.size();
    seen.resize(picture.size());
    if (paintedSheet != seenSheet) {
        changed.set();  // the sheet appears over the picture, or uncovers it
    }
    const int32_t rows = paintedSheet ? kProgramRows : StripModel::kHeightPx;
    for (int32_t y = 0; y < rows; y++) {
        const auto at = static_cast<std::ptrdiff_t>(y) * kProgramWidthPx;
        const auto row = picture.begin() + at;
        if (isAllNew || !std::equal(row, row + kProgramWidthPx, seen.begin() + at)) {
            const auto top = static_cast<size_t>(y) * kCanvasFactor;
            changed.set(top);
            changed.set(top + 1);
        }
    }
    const auto looked = static_cast<std::ptrdiff_t>(rows) * kProgramWidthPx;
    std::copy(picture.begin(), picture.begin() + looked, seen.begin());
    seenSheet = paintedSheet;
    return changed;
}
