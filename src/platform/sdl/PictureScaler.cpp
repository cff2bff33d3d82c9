#include "PictureScaler.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

constexpr int32_t kFactor = HostFrame::kCanvasFactor;
constexpr int32_t kProgramWidth = HostFrame::kWidthPx / kFactor;
constexpr int32_t kProgramHeight = HostFrame::kHeightPx / kFactor;

uint32_t blend(uint32_t a, uint32_t b, int32_t aWeight256) {
    if (a == b || aWeight256 == 256) {
        return a;
    }
    const auto aWeight = static_cast<uint32_t>(aWeight256);
    const uint32_t bWeight = 256 - aWeight;
    const uint32_t redBlue = ((a & 0xFF00FF) * aWeight + (b & 0xFF00FF) * bWeight) >> 8;
    const uint32_t green = ((a & 0xFF00) * aWeight + (b & 0xFF00) * bWeight) >> 8;
    return (redBlue & 0xFF00FF) | (green & 0xFF00);
}

uint32_t pixelAt(const uint16_t* row, int32_t programX) {
    return HostFrame::toRgb32(row[ptrdiff_t{kFactor} * programX]);
}

const uint16_t* rowAt(const uint16_t* picture, int32_t programY) {
    return picture + static_cast<ptrdiff_t>(kFactor * programY) * HostFrame::kWidthPx;
}

}  // namespace

PicturePlace PictureScaler::place(int32_t windowWidth, int32_t windowHeight) {
    const int32_t factor = std::min(windowWidth / kProgramWidth, windowHeight / kProgramHeight);
    PicturePlace place;
    if (factor >= 2) {
        place.width = factor * kProgramWidth;
        place.height = factor * kProgramHeight;
    } else if (int64_t{windowWidth} * kProgramHeight < int64_t{windowHeight} * kProgramWidth) {
        place.width = windowWidth;
        place.height = windowWidth * kProgramHeight / kProgramWidth;
    } else {
        place.width = windowHeight * kProgramWidth / kProgramHeight;
        place.height = windowHeight;
    }
    place.x = (windowWidth - place.width) / 2;
    place.y = (windowHeight - place.height) / 2;
    return place;
}

std::vector<PictureScaler::Cover> PictureScaler::covers(int32_t windowPixels,
                                                        int32_t programPixels) {
    std::vector<Cover> covers(static_cast<size_t>(windowPixels));
    for (int32_t i = 0; i < windowPixels; i++) {
        // In units of 1 / windowPixels of a program's pixel: this one covers from .. to.
        const int64_t from = int64_t{i} * programPixels;
        const int64_t to = from + programPixels;
        Cover& cover = covers[static_cast<size_t>(i)];
        cover.first = static_cast<int32_t>(from / windowPixels);
        cover.second = cover.first;
        const int64_t border = (int64_t{cover.first} + 1) * windowPixels;
        if (to > border) {
            cover.second = cover.first + 1;
            cover.firstWeight256 = static_cast<int32_t>((border - from) * 256 / programPixels);
        }
    }
    return covers;
}

/// Each of the program's pixels the same whole number of times.
void PictureScaler::drawWholePixels(const uint16_t* row, uint32_t* target) const {
    const int32_t factor = prepared.width / kProgramWidth;
    for (int32_t x = 0; x < kProgramWidth; x++) {
        const uint32_t colour = pixelAt(row, x);
        for (int32_t i = 0; i < factor; i++) {
            *target++ = colour;
        }
    }
}

void PictureScaler::drawRow(const uint16_t* picture, const Cover& row, uint32_t* target) {
    const uint16_t* upper = rowAt(picture, row.first);
    if (prepared.width % kProgramWidth == 0 && row.firstWeight256 == 256) {
        drawWholePixels(upper, target);
        return;
    }
    const uint16_t* lower = rowAt(picture, row.second);
    if (row.firstWeight256 == 256) {
        lower = upper;
    }
    for (const Cover& column : columns) {
        const uint32_t above = blend(pixelAt(upper, column.first), pixelAt(upper, column.second),
                                     column.firstWeight256);
        const uint32_t below = lower == upper
                                   ? above
                                   : blend(pixelAt(lower, column.first),
                                           pixelAt(lower, column.second), column.firstWeight256);
        *target++ = blend(above, below, row.firstWeight256);
    }
}

void PictureScaler::draw(const uint16_t* picture,
                         uint32_t* target,
                         int32_t stridePixels,
                         int32_t windowWidth,
                         int32_t windowHeight) {
    const PicturePlace where = place(windowWidth, windowHeight);
    if (!(where == prepared)) {
        prepared = where;
        columns = covers(where.width, kProgramWidth);
        rows = covers(where.height, kProgramHeight);
    }
    const auto width = static_cast<size_t>(where.width);
    const Cover* above = nullptr;
    for (int32_t y = 0; y < windowHeight; y++) {
        uint32_t* row = target + static_cast<ptrdiff_t>(y) * stridePixels;
        std::fill(row, row + where.x, 0U);
        std::fill(row + where.x + where.width, row + windowWidth, 0U);
        if (y < where.y || y >= where.y + where.height) {
            std::fill(row + where.x, row + where.x + where.width, 0U);
            continue;
        }
        const Cover& cover = rows[static_cast<size_t>(y - where.y)];
        if (above != nullptr && cover == *above) {
            std::memcpy(row + where.x, row - stridePixels + where.x, width * sizeof *row);
        } else {
            drawRow(picture, cover, row + where.x);
        }
        above = &cover;
    }
}

std::vector<RowBand> PictureScaler::drawChanged(const uint16_t* picture,
                                                uint32_t* target,
                                                int32_t stridePixels,
                                                const HostFrame::Rows& changed) {
    const auto isChanged = [&changed](int32_t programY) {
        return changed[size_t{kFactor} * static_cast<size_t>(programY)];
    };
    std::vector<RowBand> bands;
    const auto width = static_cast<size_t>(prepared.width);
    const Cover* above = nullptr;  // of the row above, if that was drawn
    for (int32_t y = 0; y < prepared.height; y++) {
        const Cover& cover = rows[static_cast<size_t>(y)];
        if (!isChanged(cover.first) && !isChanged(cover.second)) {
            above = nullptr;
            continue;
        }
        uint32_t* row = target + static_cast<ptrdiff_t>(prepared.y + y) * stridePixels + prepared.x;
        if (above != nullptr && cover == *above) {
            std::memcpy(row, row - stridePixels, width * sizeof *row);
        } else {
            drawRow(picture, cover, row);
        }
        if (above == nullptr) {
            bands.push_back({prepared.y + y, 0});
        }
        bands.back().count++;
        above = &cover;
    }
    return bands;
}
