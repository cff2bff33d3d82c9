// SPDX-License-Identifier: MIT
#include "ImageOps.h"

#include "AppImage.h"
#include "Bounds.h"
#include "PixelMath.h"
#include "Pooled.h"
#include "Saturating.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr int32_t kReductionShift = 4;  // 16 columns become one
constexpr uint32_t kRoundUp = 15;       // so that the mean of 16 times 255 is 255
constexpr uint32_t kRoundUpPair = kRoundUp << 16 | kRoundUp;

/// Cuts r to the destination, then to the clip; false if nothing remains.
bool clipTo(Bounds* r, AppImage* dst, Bounded* clip) {
    const PooledBounds area(Bounds::alloc(0, 0, dst->w, dst->h));
    Bounds::intersect(r, area);
    if (!Bounds::isValid(r)) {
        return false;
    }
    Bounds::intersect(r, clip);
    return Bounds::isValid(r);
}

/// The pixel at (x, y); transparent outside the image.
uint32_t pixelOrNothing(AppImage* image, int64_t x, int64_t y) {
    const bool inside = x >= 0 && x < image->w && y >= 0 && y < image->h;
    return inside ? image->get(static_cast<int32_t>(x), static_cast<int32_t>(y)) : 0;
}

/// The pixel of a cell: the columns begin .. end - 1 of one row, each channel summed by itself.
uint32_t reduceCell(const uint32_t* row, int32_t begin, int32_t end) {
    uint32_t redBlue = kRoundUpPair;  // at most 15 + 16 * 255 in each half
    uint32_t alphaGreen = kRoundUpPair;
    for (int32_t i = begin; i < end; i++) {
        redBlue += redBlueOf(row[i]);
        alphaGreen += alphaGreenOf(row[i]);
    }
    return (redBlue >> kReductionShift & kPairMask) | (alphaGreen >> kReductionShift & kPairMask)
                                                          << 8;
}

}  // namespace

void ImageOps::blend(
    AppImage* dst, AppImage* src, int32_t x, int32_t y, Bounded* clip, PixProps* props) {
    const PooledBounds r(Bounds::alloc(x, y, src->w, src->h));
    if (clipTo(r, dst, clip)) {
        dst->blend(src, r->x - x, r->y - y, r->w, r->h, r->x, r->y, props);
    }
}

void ImageOps::blend(AppImage* dst,
                     uint32_t argb,
                     int32_t x,
                     int32_t y,
                     int32_t w,
                     int32_t h,
                     Bounded* clip,
                     PixProps* props) {
    const uint32_t c = AppImage::applyProps(argb, props);
    if (c >> 24 == 0) {
        return;
    }
    const PooledBounds r(Bounds::alloc(x, y, w, h));
    if (clipTo(r, dst, clip)) {
        dst->blend(c, r->x, r->y, r->w, r->h);
    }
}

void ImageOps::blend(AppImage* dst,
                     uint32_t argb,
                     AppImage* mask,
                     int32_t x,
                     int32_t y,
                     Bounded* clip,
                     PixProps* props) {
    const PooledBounds r(Bounds::alloc(x, y, mask->w, mask->h));
    if (clipTo(r, dst, clip)) {
        dst->blend(argb, mask, r->x - x, r->y - y, r->w, r->h, r->x, r->y, props);
    }
}

void ImageOps::blendRect(AppImage* dst,
                         Bounded* rect,
                         uint32_t argb,
                         int32_t dx,
                         int32_t dy,
                         Bounded* clip,
                         PixProps* props) {
    const PooledBounds r(Bounds::alloc(rect));
    Bounds::move(r, dx, dy);
    blend(dst, argb, r->x, r->y, r->w, r->h, clip, props);
}

void ImageOps::fillRect(AppImage* dst,
                        Bounded* rect,
                        uint32_t argb,
                        int32_t dx,
                        int32_t dy,
                        Bounded* clip,
                        PixProps* props) {
    const PooledBounds r(Bounds::alloc(rect));
    Bounds::move(r, dx, dy);
    if (clipTo(r, dst, clip)) {
        dst->set(AppImage::applyProps(argb, props), r->x, r->y, r->w, r->h);
    }
}

void ImageOps::blendStretched(AppImage* dst,
                              AppImage* src,
                              int32_t sx,
                              int32_t sy,
                              bool acrossRows,
                              Bounded* target,
                              Bounded* clip,
                              PixProps* props) {
    const PooledBounds r(Bounds::alloc(target));
    const int32_t tx = r->x;
    const int32_t ty = r->y;
    const bool anything = clipTo(r, dst, clip);
    const int32_t lines = anything ? (acrossRows ? r->h : r->w) : 0;
    for (int32_t i = 0; i < lines; i++) {
        const int64_t line = i + (acrossRows ? int64_t{r->y} - ty : int64_t{r->x} - tx);
        const uint32_t pixel =
            acrossRows ? pixelOrNothing(src, sx, sy + line) : pixelOrNothing(src, sx + line, sy);
        const uint32_t c = AppImage::applyProps(pixel, props);
        if (c >> 24 == 0) {
            continue;
        }
        if (acrossRows) {
            dst->blend(c, r->x, r->y + i, r->w, 1);
        } else {
            dst->blend(c, r->x + i, r->y, 1, r->h);
        }
    }
}

void ImageOps::blendMap(AppImage* dst,
                        AppImage* map,
                        Bounded* part,
                        int32_t x,
                        int32_t y,
                        Bounded* clip,
                        PixProps* props) {
    const PooledBounds r(Bounds::alloc(part));
    const PooledBounds whole(Bounds::alloc(satSub(x, r->x), satSub(y, r->y), map->w, map->h));
    Bounds::setPos(r, x, y);
    Bounds::intersect(r, whole);
    if (clipTo(r, dst, clip)) {
        dst->blend(map, r->x - whole->x, r->y - whole->y, r->w, r->h, r->x, r->y, props);
    }
}

void ImageOps::blendMap(AppImage* dst,
                        AppImage* map,
                        int32_t index,
                        int32_t columns,
                        int32_t rows,
                        int32_t x,
                        int32_t y,
                        Bounded* clip,
                        PixProps* props) {
    if (columns < 1 || rows < 1 || index < 0 || index / columns >= rows) {
        return;
    }
    const int32_t cellW = map->w / columns;
    const int32_t cellH = map->h / rows;
    const PooledBounds cell(
        Bounds::alloc(index % columns * cellW, index / columns * cellH, cellW, cellH));
    blendMap(dst, map, cell, x, y, clip, props);
}

void ImageOps::copyWidth16To1(AppImage* src, AppImage* dst, int32_t x, int32_t y) {
    const int64_t endX = int64_t{x} + src->w;
    const auto firstCell = std::max(x >> kReductionShift, 0);
    const auto endCell = std::min((endX + 15) >> kReductionShift, int64_t{dst->w});
    for (int32_t row = 0; row < src->h; row++) {
        const int64_t dstRow = int64_t{y} + row;
        if (dstRow < 0 || dstRow >= dst->h) {
            continue;
        }
        const uint32_t* pixels = src->pixels + ptrdiff_t{src->w} * row;
        for (int32_t cell = firstCell; cell < endCell; cell++) {
            const int64_t begin = (int64_t{cell} << kReductionShift) - x;  // source column
            dst->set(reduceCell(pixels, static_cast<int32_t>(std::max(begin, int64_t{0})),
                                static_cast<int32_t>(std::min(begin + 16, int64_t{src->w}))),
                     cell, static_cast<int32_t>(dstRow));
        }
    }
}
