// SPDX-License-Identifier: MIT
// A bitmap font: its characters sorted by code point, their file format, measuring and drawing.
//
// Texts are read one UTF-16 unit at a time, without kerning. Element 0 is the missing character
// (code point 0, a hollow square), which is used for every code point that the font lacks.
#pragma once

#include "Array.h"
#include "GnoObject.h"
#include "OspBase.h"

class AppImage;
class BitMapCharacter;
class InputStream;
class OutputStream;

class BitMapFont : public GnoObject {
public:
    static constexpr int32_t MISSING_CHAR_CODE_POINT = 0;
    static constexpr int32_t DEFAULT_MISSING_CHAR_WIDTH = 10;  // px
    static constexpr int32_t DEFAULT_CHAR_ARRAY_SIZE = 200;
    static constexpr int32_t DEFAULT_LINE_HEIGHT = 10;  // px
    static constexpr const char* DEFAULT_FONT_NAME = "/com/tallowin/orm/image/font/default.bmf";

    /// A font with the name "n/a" and the default line height.
    BitMapFont();

    /// @param name  copied; null is "n/a"
    BitMapFont(Osp::Base::String* name, float size, int32_t lineHeight);
    ~BitMapFont() override;

    /// Reads a font file and closes the stream; the caller deletes the stream. Never null: a file
    /// that is cut short gives a font of the characters that are there.
    static BitMapFont* createFrom(InputStream* in);

    /// Reads a font file of the resources; the caller deletes the font. Null if there is no such
    /// file, or if it is empty.
    static BitMapFont* createFromFile(const Osp::Base::String& path);

    /// The framework's own font; the caller deletes it.
    static BitMapFont* getDefaultFont();

    /// Writes a file that createFrom() reads back. False, and nothing is written, if there are more
    /// characters than the file can count (32767).
    bool writeTo(OutputStream* out);

    /// The font holds the character, and releases the one that had its code point. Line feed, space
    /// and no-break space lose their bitmap.
    void addChar(BitMapCharacter* character);

    /// The missing character becomes a hollow square of s pixels on the baseline. If s is less than
    /// 1, it has no ink; sizes are limited to 255.
    void setMissingChar(int32_t s);

    /// Makes the missing character as wide as a space, too.
    void setLineHeight(int32_t lineHeight);

    /// The missing character for a code point that the font lacks.
    BitMapCharacter* getChar(int32_t codePoint);

    BitMapCharacter* getMissingChar() { return characters[0]; }

    /// @param index  0 to getNumChars() - 1; not checked
    BitMapCharacter* getCharAtIndex(int32_t index) { return characters[index]; }

    /// -1 if the font lacks it.
    int32_t getIndexOfCodePoint(int32_t codePoint);

    bool hasCodePoint(int32_t codePoint) { return getIndexOfCodePoint(codePoint) >= 0; }

    Osp::Base::String* getOriginalFontName() { return &originalFontName; }

    float getOriginalFontSize() const { return originalFontSize; }

    int32_t getNumChars() const { return numChars; }

    int32_t getLineHeight() const { return lineHeight; }

    /// The largest number of pixels that a character has reached above (below) the baseline so far;
    /// it never becomes smaller.
    int32_t getMaxAbove() const { return maxAbove; }

    int32_t getMaxBelow() const { return maxBelow; }

    int32_t getMaxHeight() const { return maxAbove + maxBelow; }

    /// Adds the other font's characters that this one lacks; both fonts hold them then, and either
    /// may be deleted first.
    void addNewCharactersFrom(BitMapFont* other);

    Osp::Base::String* toString() override;

    /// Width of the inked extent, not the sum of advances; 0 for an empty text.
    int32_t getStringWidth(Osp::Base::String* text);

    /// Where the pen stands before the character at index (at most the last one).
    // Deliberate: unlike in drawString, the first character's ofsX is not subtracted.
    int32_t getCharStartX(Osp::Base::String* text, int32_t index);

    /// Draws with the first ink at x and the top of the line box at y.
    /// @param colour  premultiplied ARGB
    void
    drawString(Osp::Base::String* text, AppImage* image, int32_t x, int32_t y, uint32_t colour);

    /// Draws only what lies in the clip rectangle.
    // Deliberate: a text whose box lies inside the clip is not clipped at all, so that ink beyond
    // the box shows; one whose box misses the clip shows nothing.
    void drawString(Osp::Base::String* text,
                    AppImage* image,
                    int32_t x,
                    int32_t y,
                    int32_t clipX,
                    int32_t clipY,
                    int32_t clipW,
                    int32_t clipH,
                    uint32_t colour);

private:
    int32_t indexAtOrAfter(int32_t codePoint) const;
    int32_t inkStart(const Osp::Base::String& text);
    void insert(BitMapCharacter* character);
    void reallocate();

    template <typename Draw>
    void forEachInked(const Osp::Base::String& text, int32_t x, int32_t y, Draw draw);

    Osp::Base::String originalFontName;
    float originalFontSize;
    Array<BitMapCharacter*> characters;  // its length is the capacity
    int32_t numChars = 0;
    int32_t lineHeight;
    int32_t maxAbove = 0;
    int32_t maxBelow = 0;
};
