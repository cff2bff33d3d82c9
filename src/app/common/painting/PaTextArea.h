// SPDX-License-Identifier: MIT
// A block of text, wrapped to the width of its rectangle.
//
// Rows break at spaces; a word wider than the area is cut, and a single glyph wider than the area
// stands alone in its row. Painting is clipped to the rectangle. Without a text or a font the area
// is empty. The layout is made whenever a property is set; after a change of the language refresh()
// makes it again.
#pragma once

#include "AbstractPainter.h"

#include <cstddef>
#include <vector>

class BitMapFont;
class Vector;

namespace Osp::Base {
class String;
}

class PaTextArea : public AbstractPainter {
public:
    static constexpr int32_t kMinWidth = 20;  // px; no narrower text is laid out

    /// Empty: no text, no font, opaque white, left.
    PaTextArea();

    /// @param argb  premultiplied
    /// @param w     px; less than kMinWidth counts as kMinWidth
    void set(int32_t strId,
             int32_t fntId,
             uint32_t argb,
             int32_t align,
             int32_t x,
             int32_t y,
             int32_t w,
             int32_t h);
    void setText(int32_t id);
    void setFont(int32_t id);

    void setColour(uint32_t premultiplied) { argb = premultiplied; }

    /// Places each row by the width of its ink, in the bits of Bounds' anchors: 4 flush with the
    /// left edge, 8 with the right edge, 16 its middle over the middle of the area (both rounded
    /// towards the left). 4 takes precedence over 8, and both over 16, as in Bounds::setPos();
    /// without any of them the text stands at the left.
    void setTextAlign(int32_t anchor);
    void setSize(int32_t w, int32_t h);
    void setWidth(int32_t w);
    void setHeight(int32_t h);

    /// Moves the text (not the rectangle) down by this many pixels; negative: up, to scroll.
    void setOffsetY(int32_t px) { offsetY = px; }

    int32_t getText() const { return strId; }

    int32_t getFont() const { return fntId; }

    uint32_t getColour() const { return argb; }

    int32_t getTextAlign() const { return align; }

    int32_t getOffsetY() const { return offsetY; }

    /// From the top of the first line to the bottom of the last row: a line height for each line,
    /// empty ones included, and at least the height of the font's glyphs. 0 when nothing is laid
    /// out.
    int32_t getTextHeight() const { return textHeight; }

    int32_t getNumRows() const { return static_cast<int32_t>(rows.size()); }

    /// Append a pooled rectangle for each row's (each glyph's) ink, in the coordinates of the
    /// painter's own rectangle. Rows and glyphs outside that are included.
    void appendRowBounds(Vector* out);
    void appendCharBounds(Vector* out);

    /// Lays out again if the width changes.
    void setBounds(Bounds* source) override;
    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;
    void refresh() override;

private:
    struct Glyph {
        int32_t codePoint;
        int32_t x, y, w, h;  // px, relative to the area's top left corner
    };

    void layOut();
    int32_t findRowEnd(const Osp::Base::String& text, BitMapFont* font, int32_t start) const;
    void appendRow(
        const Osp::Base::String& text, BitMapFont* font, int32_t start, int32_t end, int32_t top);
    void placeRow(size_t firstGlyph, size_t endGlyph);
    void appendInk(Vector* out, size_t firstGlyph, size_t endGlyph) const;
    size_t endOfRow(size_t row) const;

    int32_t strId;
    int32_t fntId;
    uint32_t argb = 0xFFFFFFFF;
    int32_t align = 0;
    int32_t offsetY = 0;
    int32_t textHeight = 0;
    std::vector<int32_t> rows;  // index of each row's first glyph
    std::vector<Glyph> glyphs;  // all inked characters
};
