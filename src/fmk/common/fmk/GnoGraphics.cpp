// SPDX-License-Identifier: MIT
#include "GnoGraphics.h"

#include "Arc.h"
#include "Arithmetic.h"
#include "GnoImage.h"
#include "RegionTransform.h"
#include "Rgb565.h"
#include "RowMarks.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>

namespace {

__extension__ using Wide = unsigned __int128;  // for the product of two distances

/// The first and the last step within low .. high, for a line of the steps 0 .. count that begins
/// at position start and moves one pixel a step.
struct Steps {
    Steps(int64_t start, int64_t direction, int64_t count, int32_t low, int32_t high)
        : first(std::max<int64_t>(0, direction > 0 ? low - start : start - high))
        , last(std::min(count, direction > 0 ? high - start : start - low)) {}

    int64_t first;
    int64_t last;
};

/// The distance of the anchor point from the left or top edge.
int32_t offsetAtAnchor(int32_t size, int32_t anchor, int32_t center, int32_t farEdge) {
    return (anchor & center) != 0 ? size >> 1 : ((anchor & farEdge) != 0 ? size : 0);
}

}  // namespace

GnoGraphics::GnoGraphics(uint16_t* surface, int32_t w, int32_t h)
    : surface(surface)
    , strideBytes(w * 2)
    , width(w)
    , height(h)
    , clipW(w)
    , clipH(h) {}

void GnoGraphics::setColor(int32_t r, int32_t g, int32_t b) {
    color = wrapShl(r, 16) | wrapShl(g, 8) | b;
}

void GnoGraphics::translate(int32_t dx, int32_t dy) {
    tx = wrapAdd(tx, dx);
    ty = wrapAdd(ty, dy);
}

/// The part of a rectangle of the surface that lies inside the clip.
GnoGraphics::Area GnoGraphics::clipped(int64_t x, int64_t y, int64_t w, int64_t h) const {
    const auto inX = [this](int64_t at) {
        return static_cast<int32_t>(std::clamp<int64_t>(at, clipX - 1, clipX + clipW));
    };
    const auto inY = [this](int64_t at) {
        return static_cast<int32_t>(std::clamp<int64_t>(at, clipY - 1, clipY + clipH));
    };
    return {std::max(inX(x), clipX), std::max(inY(y), clipY),
            std::min(inX(x + w - 1), clipX + clipW - 1),
            std::min(inY(y + h - 1), clipY + clipH - 1)};
}

uint16_t* GnoGraphics::row(int32_t y) const {
    assert(y >= 0 && y < height);
    return surface + int64_t{y} * (strideBytes / 2);
}

uint16_t* GnoGraphics::writtenRow(int32_t y) {
    if (written != nullptr) {
        written->mark(y, 1);
    }
    return row(y);
}

void GnoGraphics::clipRect(int32_t x, int32_t y, int32_t w, int32_t h) {
    const Area area = clipped(int64_t{x} + tx, int64_t{y} + ty, w, h);
    clipX = area.x1;
    clipY = area.y1;
    clipW = std::max(0, area.x2 - area.x1 + 1);  // never negative: an empty clip stays empty
    clipH = std::max(0, area.y2 - area.y1 + 1);
}

void GnoGraphics::fillSurface(int64_t x, int64_t y, int64_t w, int64_t h) {
    const Area area = clipped(x, y, w, h);
    const uint16_t pixel = Rgb565::fromRgb(static_cast<uint32_t>(color));
    for (int32_t j = area.y1; j <= area.y2 && area.x1 <= area.x2; j++) {
        uint16_t* pixels = writtenRow(j);
        std::fill(pixels + area.x1, pixels + area.x2 + 1, pixel);
    }
}

void GnoGraphics::fillRect(int32_t x, int32_t y, int32_t w, int32_t h) {
    fillSurface(int64_t{x} + tx, int64_t{y} + ty, w, h);
}

void GnoGraphics::drawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    const int64_t x = int64_t{x1} + tx;
    const int64_t y = int64_t{y1} + ty;
    const int64_t dx = int64_t{x2} + tx - x;
    const int64_t dy = int64_t{y2} + ty - y;
    if (std::abs(dx) >= std::abs(dy)) {
        drawSteps({x, dx, clipX, clipX + clipW - 1}, {y, dy, clipY, clipY + clipH - 1}, false);
    } else {
        drawSteps({y, dy, clipY, clipY + clipH - 1}, {x, dx, clipX, clipX + clipW - 1}, true);
    }
}

/// Draws one pixel for each step along the longer direction; steps outside the clip are skipped.
void GnoGraphics::drawSteps(const Axis& longer, const Axis& shorter, bool steep) {
    const uint16_t pixel = Rgb565::fromRgb(static_cast<uint32_t>(color));
    const int64_t count = std::abs(longer.distance);
    const Steps steps(longer.start, longer.distance, count, longer.low, longer.high);
    for (int64_t i = steps.first; i <= steps.last; i++) {
        const int64_t at = longer.start + (longer.distance < 0 ? -i : i);
        // i / count of the shorter way, rounded, halves up: the product takes up to 66 bits
        const auto doubled =
            Wide{2} * static_cast<uint64_t>(i) * static_cast<uint64_t>(std::abs(shorter.distance));
        const auto moved =
            static_cast<int64_t>(count == 0 ? 0
                                            : (doubled + static_cast<uint64_t>(count)) /
                                                  static_cast<uint64_t>(2 * count));
        const int64_t side = shorter.start + (shorter.distance < 0 ? -moved : moved);
        if (side >= shorter.low && side <= shorter.high) {
            writtenRow(static_cast<int32_t>(steep ? at : side))[steep ? side : at] = pixel;
        }
    }
}

// Deliberate: the left edge starts one pixel above the lower left corner, so that an outline of
// height 0 gets one pixel above its left end.
void GnoGraphics::drawRect(int32_t x, int32_t y, int32_t w, int32_t h) {
    drawLine(x, y, wrapAdd(x, w), y);
    drawLine(wrapAdd(x, w), y, wrapAdd(x, w), wrapAdd(y, h));
    drawLine(wrapAdd(x, w), wrapAdd(y, h), x, wrapAdd(y, h));
    drawLine(x, wrapSub(wrapAdd(y, h), 1), x, y);
}

void GnoGraphics::plot(int64_t x, int64_t y) {
    fillSurface(x, y, 1, 1);
}

void GnoGraphics::drawArc(
    int32_t x, int32_t y, int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg) {
    if (!Arc::isDrawable(w, h)) {
        return;
    }
    // u and w are both even or both odd, and so are v and h
    const int64_t left = int64_t{x} + tx;
    const int64_t top = int64_t{y} + ty;
    Arc(w, h, startDeg, arcDeg).outline([=, this](int32_t u, int32_t v) {
        plot(left + (w + u) / 2, top + (h - v) / 2);
    });
}

void GnoGraphics::fillArc(
    int32_t x, int32_t y, int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg) {
    if (!Arc::isDrawable(w, h)) {
        return;
    }
    const Arc arc(w, h, startDeg, arcDeg);
    const int64_t left = int64_t{x} + tx;
    const int64_t top = int64_t{y} + ty;
    const uint16_t pixel = Rgb565::fromRgb(static_cast<uint32_t>(color));
    const Area area = clipped(left, top, w, h);
    for (int32_t j = area.y1; j <= area.y2; j++) {
        const auto v = static_cast<int32_t>(h - 2 * (j - top) - 1);
        for (int32_t i = area.x1; i <= area.x2; i++) {
            const auto u = static_cast<int32_t>(2 * (i - left) + 1 - w);
            if (arc.isInEllipse(u, v) && arc.isBetweenAngles(u, v)) {
                writtenRow(j)[i] = pixel;
            }
        }
    }
}

void GnoGraphics::drawImage(GnoImage* image, int32_t x, int32_t y, int32_t anchor) {
    drawRegion(image, 0, 0, image->getWidth(), image->getHeight(), 0, x, y, anchor);
}

void GnoGraphics::drawRegion(GnoImage* image,
                             int32_t sx,
                             int32_t sy,
                             int32_t w,
                             int32_t h,
                             int32_t transform,
                             int32_t x,
                             int32_t y,
                             int32_t anchor) {
    if (!RegionTransform::isKnown(transform)) {
        return;
    }
    const RegionTransform region(transform, w, h);
    const int64_t left =
        int64_t{x} + tx - offsetAtAnchor(region.resultWidth(), anchor, kHCenter, kRight);
    const int64_t top =
        int64_t{y} + ty -
        offsetAtAnchor(region.resultHeight(), anchor, kVCenter, kBottom | kBaseline);
    const Area area = clipped(left, top, region.resultWidth(), region.resultHeight());
    const uint8_t* alpha = image->getAlpha();
    for (int32_t j = area.y1; j <= area.y2; j++) {
        for (int32_t i = area.x1; i <= area.x2; i++) {
            const auto inX = static_cast<int32_t>(i - left);
            const auto inY = static_cast<int32_t>(j - top);
            const int64_t fromX = int64_t{sx} + region.sourceX(inX, inY);
            const int64_t fromY = int64_t{sy} + region.sourceY(inX, inY);
            if (fromX < 0 || fromY < 0 || fromX >= image->getWidth() ||
                fromY >= image->getHeight()) {
                continue;
            }
            const int64_t from = fromX + image->getWidth() * fromY;
            const uint16_t pixel = image->getPixels()[from];
            const uint32_t a = alpha == nullptr ? 255 : alpha[from];
            writtenRow(j)[i] = Rgb565::blend(a << 24 | Rgb565::toRgb(pixel), row(j)[i]);
        }
    }
}

void GnoGraphics::drawRGB(const uint32_t* argb,
                          int32_t offset,
                          int32_t scanlength,
                          int32_t x,
                          int32_t y,
                          int32_t w,
                          int32_t h,
                          bool processAlpha) {
    const Area area = clipped(int64_t{x} + tx, int64_t{y} + ty, w, h);
    const int32_t n = area.x2 - area.x1 + 1;
    if (n < 1 || area.y2 < area.y1) {
        return;
    }
    const auto source = [&](int32_t j) {
        const int64_t cutX = area.x1 - (int64_t{x} + tx);
        const int64_t cutY = j - (int64_t{y} + ty);
        return argb + offset + cutX + cutY * scanlength;
    };
    // If the rows follow one another without a gap, in the source and on the surface, they are
    // copied as one long row.
    const bool isWhole = written == nullptr && n == scanlength && n == strideBytes / 2;
    const int32_t rows = isWhole ? 1 : area.y2 - area.y1 + 1;
    const int32_t rowPixels = isWhole ? n * (area.y2 - area.y1 + 1) : n;
    bool blends = false;
    for (int32_t j = area.y1; processAlpha && !blends && j < area.y1 + rows; j++) {
        blends = !Rgb565::isRowOpaque(source(j), rowPixels);
    }
    for (int32_t j = area.y1; j < area.y1 + rows; j++) {
        if (blends) {
            Rgb565::blendRow(writtenRow(j) + area.x1, source(j), rowPixels);
        } else if (written == nullptr) {
            Rgb565::storeRow(row(j) + area.x1, source(j), rowPixels);
        } else if (Rgb565::replaceRow(row(j) + area.x1, source(j), rowPixels)) {
            written->mark(j, 1);
        }
    }
}
