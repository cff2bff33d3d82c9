// SPDX-License-Identifier: MIT
#include "PictureScaler.h"

#include "Kernels.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

constexpr int32_t kFactor = HostFrame::kCanvasFactor;
static_assert(kFactor == 2, "convertDoubled() writes two pixels for each");
constexpr int32_t kProgramWidth = HostFrame::kWidthPx / kFactor;
constexpr int32_t kStripRows = HostFrame::kCanvasTopPx / kFactor;
constexpr int32_t kPictureRows = HostFrame::kHeightPx / kFactor - kStripRows;

MURMELO_KERNEL_PART uint32_t blend(uint32_t a, uint32_t b, int32_t aWeight256) {
    const auto aWeight = static_cast<uint32_t>(aWeight256);
    const uint32_t bWeight = 256 - aWeight;
    const uint32_t redBlue = ((a & 0xFF00FF) * aWeight + (b & 0xFF00FF) * bWeight) >> 8;
    const uint32_t green = ((a & 0xFF00) * aWeight + (b & 0xFF00) * bWeight) >> 8;
    return (redBlue & 0xFF00FF) | (green & 0xFF00);
}

const uint16_t* rowAt(const uint16_t* picture, int32_t programY) {
    return picture + static_cast<ptrdiff_t>(programY) * HostFrame::kWidthPx;
}

/// The columns of a window in which each of the program's pixels is as wide as on the display.
MURMELO_KERNEL void convertDoubled(const uint16_t* __restrict source, uint32_t* __restrict target) {
    for (ptrdiff_t x = 0; x < HostFrame::kWidthPx; x += kFactor) {
        const uint32_t pixel = HostFrame::toRgb32(source[x]);
        target[x] = pixel;
        target[x + 1] = pixel;
    }
}

/// One value for each of the program's pixels.
MURMELO_KERNEL void convert(const uint16_t* __restrict source, uint32_t* __restrict target) {
    for (ptrdiff_t x = 0; x < kProgramWidth; x++) {
        target[x] = HostFrame::toRgb32(source[kFactor * x]);
    }
}

MURMELO_KERNEL void blendRows(const uint32_t* upper,
                              const uint32_t* lower,
                              int32_t upperWeight256,
                              uint32_t* __restrict target,
                              size_t pixels) {
    for (size_t x = 0; x < pixels; x++) {
        target[x] = blend(upper[x], lower[x], upperWeight256);
    }
}

}  // namespace

void PictureScaler::prepare(int32_t windowWidth, int32_t windowHeight) {
    if (windowWidth == preparedWidth && windowHeight == preparedHeight) {
        return;
    }
    preparedWidth = windowWidth;
    preparedHeight = windowHeight;
    const WindowLayout layout(windowWidth, windowHeight);
    parts = {partOf(layout.strip(), 0, kStripRows),
             partOf(layout.picture(), kStripRows, kPictureRows)};
}

PictureScaler::Part
PictureScaler::partOf(const PicturePlace& place, int32_t firstRow, int32_t rows) {
    return {place, covers(place.width, 0, kProgramWidth), covers(place.height, firstRow, rows)};
}

std::vector<PictureScaler::Cover>
PictureScaler::covers(int32_t windowPixels, int32_t first, int32_t programPixels) {
    std::vector<Cover> covers(static_cast<size_t>(windowPixels));
    for (int32_t i = 0; i < windowPixels; i++) {
        // The window's pixel i covers from .. to, in units of 1 / windowPixels of a program's
        // pixel.
        const int64_t from = int64_t{i} * programPixels;
        const int64_t to = from + programPixels;
        const int64_t pixel = from / windowPixels;
        const int64_t border = (pixel + 1) * windowPixels;
        Cover& cover = covers[static_cast<size_t>(i)];
        cover.first = first + static_cast<int32_t>(pixel);
        cover.second = cover.first;
        if (to > border) {
            cover.second = cover.first + 1;
            cover.firstWeight256 = static_cast<int32_t>((border - from) * 256 / programPixels);
        }
    }
    return covers;
}

/// The program's pixels of one row, each column of the window being a mixture of two of them.
MURMELO_KERNEL void PictureScaler::blendColumns(const uint32_t* pixels,
                                                const Cover* columns,
                                                uint32_t* __restrict target,
                                                size_t count) {
    for (size_t x = 0; x < count; x++) {
        const Cover& column = columns[x];
        target[x] = blend(pixels[column.first], pixels[column.second], column.firstWeight256);
    }
}

/// A row of the program, scaled to the window's columns. Valid until two other rows were asked for.
const std::vector<uint32_t>&
PictureScaler::lineOf(const Part& part, const uint16_t* picture, int32_t row) {
    Line& line = lines[static_cast<size_t>(row) % lines.size()];
    if (line.row == row) {
        return line.pixels;
    }
    line.row = row;
    line.pixels.resize(part.columns.size());
    const uint16_t* source = rowAt(picture, row);
    uint32_t* target = line.pixels.data();
    if (part.place.width == HostFrame::kWidthPx) {
        convertDoubled(source, target);
        return line.pixels;
    }
    uint32_t pixels[kProgramWidth];
    convert(source, pixels);
    blendColumns(pixels, part.columns.data(), target, part.columns.size());
    return line.pixels;
}

void PictureScaler::drawRow(const Part& part,
                            const uint16_t* picture,
                            const Cover& row,
                            uint32_t* target) {
    const std::vector<uint32_t>& upper = lineOf(part, picture, row.first);
    if (row.firstWeight256 == 256) {
        std::copy(upper.begin(), upper.end(), target);
        return;
    }
    const std::vector<uint32_t>& lower = lineOf(part, picture, row.second);
    blendRows(upper.data(), lower.data(), row.firstWeight256, target, upper.size());
}

/// @param drawn  gets the places, one for each run of rows
void PictureScaler::drawPart(const Part& part,
                             const uint16_t* picture,
                             uint32_t* target,
                             int32_t stridePixels,
                             const HostFrame::Rows& changed,
                             std::vector<PicturePlace>& drawn) {
    const auto isChanged = [&changed](int32_t programY) {
        return changed[size_t{kFactor} * static_cast<size_t>(programY)];
    };
    const PicturePlace& place = part.place;
    const auto width = static_cast<size_t>(place.width);
    for (Line& line : lines) {
        line.row = -1;  // forget the rows of the last picture
    }
    const Cover* above = nullptr;  // what the row above covers; null if it was not drawn
    for (int32_t y = 0; y < place.height; y++) {
        const Cover& cover = part.rows[static_cast<size_t>(y)];
        if (!isChanged(cover.first) && !isChanged(cover.second)) {
            above = nullptr;
            continue;
        }
        uint32_t* row = target + static_cast<ptrdiff_t>(place.y + y) * stridePixels + place.x;
        if (above != nullptr && cover == *above) {
            std::memcpy(row, row - stridePixels, width * sizeof *row);
        } else {
            drawRow(part, picture, cover, row);
        }
        if (above == nullptr) {
            drawn.push_back({place.x, place.y + y, place.width, 0});
        }
        drawn.back().height++;
        above = &cover;
    }
}

/// Fills the pixels of a window's row outside strip and picture; those of strip and picture are
/// drawn later.
void PictureScaler::clearBeside(int32_t y, uint32_t* row, int32_t windowWidth) const {
    int32_t x = 0;
    for (const Part& part : parts) {  // from left to right where they lie side by side
        const PicturePlace& place = part.place;
        if (y >= place.y && y < place.y + place.height) {
            std::fill(row + std::min(x, place.x), row + place.x, kBesideRgb);
            x = place.x + place.width;
        }
    }
    std::fill(row + x, row + windowWidth, kBesideRgb);
}

void PictureScaler::draw(const uint16_t* picture,
                         uint32_t* target,
                         int32_t stridePixels,
                         int32_t windowWidth,
                         int32_t windowHeight) {
    prepare(windowWidth, windowHeight);
    for (int32_t y = 0; y < windowHeight; y++) {
        clearBeside(y, target + static_cast<ptrdiff_t>(y) * stridePixels, windowWidth);
    }
    drawChanged(picture, target, stridePixels, HostFrame::Rows().set());
}

std::vector<PicturePlace> PictureScaler::drawChanged(const uint16_t* picture,
                                                     uint32_t* target,
                                                     int32_t stridePixels,
                                                     const HostFrame::Rows& changed) {
    std::vector<PicturePlace> drawn;
    for (const Part& part : parts) {
        drawPart(part, picture, target, stridePixels, changed, drawn);
    }
    return drawn;
}
