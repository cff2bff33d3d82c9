// SPDX-License-Identifier: MIT
// One line of text, as wide as its ink.
//
// The rectangle takes its size from the text when text or font are set; refresh() does so again
// after a change of the language. Always paints the current text, with its ink starting exactly at
// the rectangle's top left corner. Without a text or a font the label is empty.
#pragma once

#include "AbstractPainter.h"

class PaTextLabel : public AbstractPainter {
public:
    /// Empty: no text, no font, opaque white.
    PaTextLabel();

    /// @param argb  premultiplied
    PaTextLabel(int32_t strId, int32_t fntId, uint32_t argb);

    void set(int32_t strId, int32_t fntId, uint32_t argb);
    void setText(int32_t id);
    void setFont(int32_t id);

    void setColour(uint32_t premultiplied) { argb = premultiplied; }

    int32_t getText() const { return strId; }

    int32_t getFont() const { return fntId; }

    uint32_t getColour() const { return argb; }

    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;

    /// Width of the ink, height of the font's tallest and deepest glyphs; 0 x 0 when empty.
    void refresh() override;

private:
    int32_t strId;
    int32_t fntId;
    uint32_t argb = 0xFFFFFFFF;
};
