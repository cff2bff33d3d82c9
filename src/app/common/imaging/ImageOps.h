// SPDX-License-Identifier: MIT
// Clipped drawing. Every painter draws by means of these operations, because AppImage itself does
// not clip.
//
// Every operation is cut to the destination image, then to the clip; the rest is drawn by the
// destination's own pixel operations. The destination and the clip are never null; modifiers may be
// null, and then change nothing. Nothing is read or written outside an image, and nothing is
// allocated once the pool of rectangles is filled.
#pragma once

#include "ClassLife.h"

#include <cstdint>

class AppImage;
class Bounded;
class PixProps;

class ImageOps : public ClassLife {
public:
    /// The whole source with its top left corner at (x, y).
    static void
    blend(AppImage* dst, AppImage* src, int32_t x, int32_t y, Bounded* clip, PixProps* props);

    /// A premultiplied colour over a rectangle.
    static void blend(AppImage* dst,
                      uint32_t argb,
                      int32_t x,
                      int32_t y,
                      int32_t w,
                      int32_t h,
                      Bounded* clip,
                      PixProps* props);

    /// A premultiplied colour through the alpha of a mask whose top left corner lies at (x, y).
    static void blend(AppImage* dst,
                      uint32_t argb,
                      AppImage* mask,
                      int32_t x,
                      int32_t y,
                      Bounded* clip,
                      PixProps* props);

    /// A premultiplied colour over a rectangle shifted by (dx, dy).
    static void blendRect(AppImage* dst,
                          Bounded* rect,
                          uint32_t argb,
                          int32_t dx,
                          int32_t dy,
                          Bounded* clip,
                          PixProps* props);

    /// As blendRect(), but the colour (modified by props) replaces the pixels, alpha included: a
    /// transparent colour erases.
    static void fillRect(AppImage* dst,
                         Bounded* rect,
                         uint32_t argb,
                         int32_t dx,
                         int32_t dy,
                         Bounded* clip,
                         PixProps* props);

    /// Stretches one column of the source sideways over the target, or one row of it downwards.
    /// The target's first row (column) shows the source pixel (sx, sy), the next one its successor.
    /// Source pixels that are transparent or outside the source draw nothing.
    /// @param acrossRows  true: one column, a colour for each row of the target
    static void blendStretched(AppImage* dst,
                               AppImage* src,
                               int32_t sx,
                               int32_t sy,
                               bool acrossRows,
                               Bounded* target,
                               Bounded* clip,
                               PixProps* props);

    /// Part of a picture map (a picture that holds several), the part's top left corner at (x, y).
    /// Where the part reaches beyond the map, nothing is drawn.
    static void blendMap(AppImage* dst,
                         AppImage* map,
                         Bounded* part,
                         int32_t x,
                         int32_t y,
                         Bounded* clip,
                         PixProps* props);

    /// One cell of a picture map of columns x rows equal cells, counted row by row from 0; pixels
    /// that are left over at the right and bottom belong to no cell. Draws nothing if there is no
    /// such cell.
    static void blendMap(AppImage* dst,
                         AppImage* map,
                         int32_t index,
                         int32_t columns,
                         int32_t rows,
                         int32_t x,
                         int32_t y,
                         Bounded* clip,
                         PixProps* props);

    /// Writes the source at a sixteenth of its width: its column c goes into the destination's
    /// column (x + c) >> 4, its first row into row y. Columns and rows outside dst are left out.
    /// Deliberate: each channel is (15 + sum) >> 4 also where fewer than 16 columns meet, so the
    /// edges of a strip that does not begin at a multiple of 16 fade softly while it slides.
    static void copyWidth16To1(AppImage* src, AppImage* dst, int32_t x, int32_t y);
};
