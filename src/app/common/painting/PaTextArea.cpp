// SPDX-License-Identifier: MIT
#include "PaTextArea.h"

#include "AppImage.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "OspBase.h"
#include "PixProps.h"
#include "Pooled.h"
#include "Res.h"
#include "Vector.h"

#include <algorithm>
#include <climits>

using Osp::Base::String;

namespace {

constexpr int32_t kNone = -1;

}  // namespace

PaTextArea::PaTextArea()
    : strId(Res::Null)
    , fntId(Res::Null) {}

void PaTextArea::set(int32_t strId,
                     int32_t fntId,
                     uint32_t argb,
                     int32_t align,
                     int32_t x,
                     int32_t y,
                     int32_t w,
                     int32_t h) {
    this->strId = strId;
    this->fntId = fntId;
    this->argb = argb;
    this->align = align;
    Bounds::set(bounds.get(), x, y, std::max(w, kMinWidth), h);
    layOut();
}

void PaTextArea::setText(int32_t id) {
    strId = id;
    layOut();
}

void PaTextArea::setFont(int32_t id) {
    fntId = id;
    layOut();
}

void PaTextArea::setSize(int32_t w, int32_t h) {
    setWidth(w);
    setHeight(h);
}

void PaTextArea::setWidth(int32_t w) {
    bounds->w = std::max(w, kMinWidth);
    layOut();
}

void PaTextArea::setHeight(int32_t h) {
    bounds->h = h;
}

void PaTextArea::setBounds(Bounds* source) {
    const int32_t oldWidth = bounds->w;
    AbstractPainter::setBounds(source);
    if (bounds->w != oldWidth) {
        setWidth(bounds->w);
    }
}

void PaTextArea::refresh() {
    layOut();
}

void PaTextArea::layOut() {
    rows.clear();
    glyphs.clear();
    textHeight = 0;
    const String* text = strId == Res::Null ? nullptr : Res::getStr(strId);
    BitMapFont* font = fntId == Res::Null ? nullptr : Res::getFont(fntId);
    if (text == nullptr || font == nullptr) {
        return;
    }
    const int32_t lineHeight = font->getLineHeight();
    const int32_t length = text->GetLength();
    int32_t top = 0;
    int32_t i = 0;
    while (true) {
        if (!rows.empty() && i < length && (*text)[i] == u'\n') {
            i++;  // the line feed that ended the row before, whose height is counted
        }
        for (; i < length && ((*text)[i] == u' ' || (*text)[i] == u'\n'); i++) {
            top += (*text)[i] == u'\n' ? lineHeight : 0;
        }
        if (i >= length) {
            break;
        }
        const int32_t end = findRowEnd(*text, font, i);
        appendRow(*text, font, i, end, top);
        textHeight = top + std::max(lineHeight, font->getMaxHeight());
        i = end;
        top += lineHeight;
    }
    setTextAlign(align);
}

int32_t PaTextArea::findRowEnd(const String& text, BitMapFont* font, int32_t start) const {
    int32_t pen = -font->getChar(text[start])->ofsX;
    int32_t breakAt = kNone;  // the first space after the last whole word
    bool inSpaces = true;
    for (int32_t i = start; i < text.GetLength(); i++) {
        if (text[i] == u'\n') {
            return i;
        }
        if (text[i] != u' ') {
            inSpaces = false;
        } else if (!inSpaces) {
            breakAt = i;
            inSpaces = true;
        }
        const BitMapCharacter* character = font->getChar(text[i]);
        if (pen + character->ofsX + character->w > std::max(bounds->w, kMinWidth)) {
            if (breakAt != kNone) {
                return breakAt;
            }
            // A glyph that is wider than the area gets a row of its own, so that the loop goes on.
            return std::max(i, start + 1);
        }
        pen += character->advanceWidth;
    }
    return text.GetLength();
}

void PaTextArea::appendRow(
    const String& text, BitMapFont* font, int32_t start, int32_t end, int32_t top) {
    rows.push_back(static_cast<int32_t>(glyphs.size()));
    const int32_t baseline = top + font->getMaxAbove();
    int32_t pen = -font->getChar(text[start])->ofsX;
    for (int32_t i = start; i < end; i++) {
        const BitMapCharacter* character = font->getChar(text[i]);
        if (character->pixels != nullptr) {
            glyphs.push_back({text[i], pen + character->ofsX, baseline + character->ofsY,
                              character->w, character->h});
        }
        pen += character->advanceWidth;
    }
}

void PaTextArea::setTextAlign(int32_t anchor) {
    align = anchor;
    for (size_t row = 0; row < rows.size(); row++) {
        placeRow(static_cast<size_t>(rows[row]), endOfRow(row));
    }
}

size_t PaTextArea::endOfRow(size_t row) const {
    return row + 1 < rows.size() ? static_cast<size_t>(rows[row + 1]) : glyphs.size();
}

void PaTextArea::placeRow(size_t firstGlyph, size_t endGlyph) {
    int32_t left = INT32_MAX;
    int32_t right = INT32_MIN;  // exclusive
    for (size_t i = firstGlyph; i < endGlyph; i++) {
        left = std::min(left, glyphs[i].x);
        right = std::max(right, glyphs[i].x + glyphs[i].w);
    }
    if (firstGlyph == endGlyph) {
        return;
    }
    int32_t newLeft = 0;
    if ((align & Bounds::kLeft) != 0) {
        newLeft = 0;
    } else if ((align & Bounds::kRight) != 0) {
        newLeft = bounds->w - (right - left);
    } else if ((align & Bounds::kCentre) != 0) {
        newLeft = (bounds->w >> 1) - ((right - left) >> 1);
    }
    for (size_t i = firstGlyph; i < endGlyph; i++) {
        glyphs[i].x += newLeft - left;
    }
}

void PaTextArea::appendRowBounds(Vector* out) {
    for (size_t row = 0; row < rows.size(); row++) {
        appendInk(out, static_cast<size_t>(rows[row]), endOfRow(row));
    }
}

void PaTextArea::appendCharBounds(Vector* out) {
    for (size_t i = 0; i < glyphs.size(); i++) {
        appendInk(out, i, i + 1);
    }
}

void PaTextArea::appendInk(Vector* out, size_t firstGlyph, size_t endGlyph) const {
    Bounds* ink = Bounds::alloc(0, 0);
    for (size_t i = firstGlyph; i < endGlyph; i++) {
        const PooledBounds glyph(Bounds::alloc(
            bounds->x + glyphs[i].x, bounds->y + offsetY + glyphs[i].y, glyphs[i].w, glyphs[i].h));
        Bounds::union_(ink, glyph);
    }
    out->addElement(ink);
}

void PaTextArea::paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    BitMapFont* font = Res::getFont(fntId);
    if (font == nullptr || glyphs.empty()) {
        return;
    }
    const PooledPixProps combined(PixProps::alloc(props.get(), inherited));
    const uint32_t colour = AppImage::applyProps(argb, combined);
    const PooledBounds area(Bounds::alloc(bounds.get()));
    Bounds::move(area, x, y);
    const int32_t originX = area->x;
    const int32_t originY = area->y + offsetY;
    const PooledBounds whole(Bounds::alloc(0, 0, dst->w, dst->h));
    Bounds::intersect(area, clip);
    Bounds::intersect(area, whole);
    if (Bounds::isValid(area)) {
        for (const Glyph& glyph : glyphs) {
            // Looked up by code point, because the font may have been freed and loaded again since
            // the layout.
            font->getChar(glyph.codePoint)
                ->draw(dst, originX + glyph.x, originY + glyph.y, area->x, area->y, area->w,
                       area->h, colour);
        }
    }
}
