// SPDX-License-Identifier: MIT
// Draws into a 16-bit RGB565 surface: plain colours, lines, arcs, device images and ARGB pixels.
//
// Coordinates are translated by (tx, ty) and clipped to the clip rectangle, so that no call draws
// outside the surface. The clip of an object can be narrowed, but never widened again.
#pragma once

#include "GnoObject.h"

#include <cstdint>

class GnoImage;

namespace Osp::Graphics {
class Canvas;
class RowMarks;
}  // namespace Osp::Graphics

class GnoGraphics : public GnoObject {
public:
    // Anchors of images: combine a horizontal and a vertical one. 0 is left and top.
    static constexpr int32_t kHCenter = 1;
    static constexpr int32_t kVCenter = 2;
    static constexpr int32_t kLeft = 4;
    static constexpr int32_t kRight = 8;
    static constexpr int32_t kTop = 16;
    static constexpr int32_t kBottom = 32;
    static constexpr int32_t kBaseline = 64;  // an image stands on its bottom edge

    /// Keeps the canvas on which the owner shows finished frames. These graphics do not draw on it.
    // NOLINTNEXTLINE(readability-identifier-naming): the phone's spelling
    void SetCanvas(Osp::Graphics::Canvas* canvas) { pCanvas = canvas; }

    /// @param rgb  0xRRGGBB
    void setColor(int32_t rgb) { color = rgb; }

    void setColor(int32_t r, int32_t g, int32_t b);

    int32_t getColor() const { return color; }

    void translate(int32_t dx, int32_t dy);

    int32_t getTranslatedX() const { return tx; }

    int32_t getTranslatedY() const { return ty; }

    /// Narrows the clip to what it shares with the rectangle.
    void clipRect(int32_t x, int32_t y, int32_t w, int32_t h);

    // Deliberate: does nothing, so that no painter can draw outside the clip of an earlier one.
    void setClip(int32_t /*x*/, int32_t /*y*/, int32_t /*w*/, int32_t /*h*/) {}

    /// The clip in pixels of the surface, without the translation.
    int32_t getClipX() const { return clipX; }

    int32_t getClipY() const { return clipY; }

    int32_t getClipWidth() const { return clipW; }

    int32_t getClipHeight() const { return clipH; }

    /// From now on marks the rows of the surface in which a pixel may have changed.
    /// @param marks  made for the surface's number of rows, not owned; null: ends the marking
    void watchRows(Osp::Graphics::RowMarks* marks) { written = marks; }

    void fillRect(int32_t x, int32_t y, int32_t w, int32_t h);

    // Deliberate: corners stay square here and in drawRoundRect.
    void
    fillRoundRect(int32_t x, int32_t y, int32_t w, int32_t h, int32_t /*arcW*/, int32_t /*arcH*/) {
        fillRect(x, y, w, h);
    }

    /// Bresenham's line; both end points are drawn. A point exactly half way between two pixels
    /// goes to the one farther from (x1, y1).
    void drawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2);

    /// An outline of w + 1 by h + 1 pixels.
    void drawRect(int32_t x, int32_t y, int32_t w, int32_t h);

    void
    drawRoundRect(int32_t x, int32_t y, int32_t w, int32_t h, int32_t /*arcW*/, int32_t /*arcH*/) {
        drawRect(x, y, w, h);
    }

    /// The outline of the ellipse that touches the w + 1 by h + 1 pixels from (x, y), by the
    /// midpoint rule. Degrees count counter-clockwise from three o'clock and are stretched with the
    /// box: 45 points to its upper right corner. Both ends belong to the arc; an arc of 0 degrees
    /// draws nothing, one of 360 or more the whole ellipse. Boxes with an edge above 32767 draw
    /// nothing.
    void drawArc(int32_t x, int32_t y, int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg);

    /// Every pixel of the w by h box whose centre lies in the ellipse that touches it and between
    /// the two angles.
    void fillArc(int32_t x, int32_t y, int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg);

    /// The whole image with its anchor point at (x, y).
    void drawImage(GnoImage* image, int32_t x, int32_t y, int32_t anchor);

    /// Draws w by h pixels of the image from (sx, sy), transformed, with the anchor point of the
    /// result at (x, y). Transforms: 0 none, 1 mirrored and turned by 180 degrees, 2 mirrored,
    /// 3 turned by 180, 4 mirrored and turned by 270, 5 turned by 90, 6 turned by 270, 7 mirrored
    /// and turned by 90; mirroring swaps left and right and comes first, turns are clockwise.
    /// Right and bottom anchors put (x, y) one pixel after the result's last column or row; centres
    /// are rounded down. For parts of the region outside the image, and for unknown transforms,
    /// nothing is drawn. Transparency is blended as in drawRGB.
    void drawRegion(GnoImage* image,
                    int32_t sx,
                    int32_t sy,
                    int32_t w,
                    int32_t h,
                    int32_t transform,
                    int32_t x,
                    int32_t y,
                    int32_t anchor);

    /// Draws w by h straight ARGB words from argb[offset], rows scanlength words apart. Without
    /// processAlpha the alpha bytes are ignored. The caller makes sure that the array is large
    /// enough.
    void drawRGB(const uint32_t* argb,
                 int32_t offset,
                 int32_t scanlength,
                 int32_t x,
                 int32_t y,
                 int32_t w,
                 int32_t h,
                 bool processAlpha);

protected:
    /// @param surface  w * h pixels without padding, not owned
    GnoGraphics(uint16_t* surface, int32_t w, int32_t h);

private:
    /// Inclusive edges in pixels of the surface; empty if x2 < x1 or y2 < y1.
    struct Area {
        int32_t x1, y1, x2, y2;
    };

    /// One direction of a line: where it starts, how far it goes, and the clip's edges.
    struct Axis {
        int64_t start, distance;
        int32_t low, high;
    };

    Area clipped(int64_t x, int64_t y, int64_t w, int64_t h) const;
    uint16_t* row(int32_t y) const;
    uint16_t* writtenRow(int32_t y);
    void fillSurface(int64_t x, int64_t y, int64_t w, int64_t h);
    void plot(int64_t x, int64_t y);
    void drawSteps(const Axis& longer, const Axis& shorter, bool steep);

    Osp::Graphics::Canvas* pCanvas = nullptr;
    uint16_t* surface;
    int32_t strideBytes;
    int32_t color = 0;
    [[maybe_unused]] int32_t width;
    int32_t height;
    int32_t clipX = 0;
    int32_t clipY = 0;
    int32_t clipW;
    int32_t clipH;
    int32_t tx = 0;
    int32_t ty = 0;
    Osp::Graphics::RowMarks* written = nullptr;  // not owned; null: rows are not marked
};
