// SPDX-License-Identifier: MIT
#include "BitMapFont.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapCharacter.h"
#include "ByteArrayInputStream.h"
#include "DataInputStream.h"
#include "DataOutputStream.h"
#include "FileInputStream.h"
#include "MIDlet.h"
#include "StringBuffer.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

using Osp::Base::String;

namespace {

constexpr int32_t kMagicBytes = 4;  // "BMF" and the version
constexpr int32_t kVersion = 1;
constexpr int32_t kMaxCharsInFile = 32767;
constexpr float kSmallestSize = 1.0F;
constexpr float kSizeOfNone = 123.0F;  // no real font has it
constexpr int32_t kLineFeed = 10;
constexpr int32_t kSpace = 32;
constexpr int32_t kNoBreakSpace = 160;
constexpr signed char kFullCoverage = 15;

bool isBlank(int32_t codePoint) {
    return codePoint == kLineFeed || codePoint == kSpace || codePoint == kNoBreakSpace;
}

String numberText(float value) {
    std::ostringstream text;
    text << value;
    return String(text.str().c_str());
}

}  // namespace

BitMapFont::BitMapFont()
    : BitMapFont(nullptr, 0.0F, DEFAULT_LINE_HEIGHT) {}

BitMapFont::BitMapFont(String* name, float size, int32_t lineHeight)
    : originalFontName(name == nullptr ? String("n/a") : *name)
    , originalFontSize(size)
    , characters(newArray<BitMapCharacter*>(DEFAULT_CHAR_ARRAY_SIZE))
    , lineHeight(lineHeight) {
    setMissingChar(DEFAULT_MISSING_CHAR_WIDTH);
}

BitMapFont::~BitMapFont() {
    for (int32_t i = 0; i < numChars; i++) {
        characters[i]->letGo();
    }
}

BitMapFont* BitMapFont::createFrom(InputStream* in) {
    DataInputStream data(in);
    data.skipBytes(kMagicBytes);
    const std::unique_ptr<String> name(data.readUTF());
    float size = data.readFloat();
    if (size < kSmallestSize) {
        size = kSizeOfNone;
    }
    const signed char lineHeight = data.readByte();
    const int32_t count = data.readShort();
    auto* font = new BitMapFont(name.get(), size, lineHeight);
    for (int32_t i = 0; i < count; i++) {
        BitMapCharacter* character = BitMapCharacter::createFrom(&data);
        if (character == nullptr) {
            break;  // the file has ended
        }
        font->addChar(character);
    }
    font->addChar(new BitMapCharacter(kLineFeed, 0, 0, 0));
    data.close();
    return font;
}

BitMapFont* BitMapFont::createFromFile(const String& path) {
    FileInputStream in(path);
    const int32_t bytes = std::min(in.available(), kMaxArrayLength);
    if (bytes < 1) {
        return nullptr;  // createFrom() would make a font that has only hollow squares
    }
    // The file is read at once, because createFrom() reads single bytes.
    const Array<signed char> data(newArray<signed char>(bytes));
    const int32_t got = std::max(in.read(data, 0, bytes), 0);
    in.close();
    ByteArrayInputStream stream(data, 0, got);
    return createFrom(&stream);
}

BitMapFont* BitMapFont::getDefaultFont() {
    const std::unique_ptr<InputStream> in(MIDlet::getResourceAsStream(DEFAULT_FONT_NAME));
    return createFrom(in.get());
}

bool BitMapFont::writeTo(OutputStream* out) {
    if (numChars > kMaxCharsInFile) {
        return false;
    }
    DataOutputStream data(out);
    for (const char letter : {'B', 'M', 'F'}) {
        data.writeByte(letter);
    }
    data.writeByte(kVersion);
    data.writeUTF(&originalFontName);
    data.writeFloat(originalFontSize);
    data.writeByte(lineHeight);
    data.writeShort(numChars);
    for (int32_t i = 0; i < numChars; i++) {
        characters[i]->writeTo(&data);
    }
    return true;
}

void BitMapFont::addChar(BitMapCharacter* character) {
    character->hold();
    if (isBlank(character->codePoint)) {
        auto* blank = new BitMapCharacter(character->codePoint, character->advanceWidth, 0, 0);
        character->letGo();
        character = blank;
        character->hold();
    }
    maxAbove = std::max(maxAbove, -character->ofsY);
    if (character->pixels != nullptr) {
        maxBelow = std::max(maxBelow, character->ofsY + character->h);
    }
    insert(character);
}

/// @param character  already held by this font
void BitMapFont::insert(BitMapCharacter* character) {
    const int32_t index = indexAtOrAfter(character->codePoint);
    if (index < numChars && characters[index]->codePoint == character->codePoint) {
        characters[index]->letGo();
        characters[index] = character;
        return;
    }
    if (numChars == length(characters)) {
        reallocate();
    }
    std::copy_backward(characters + index, characters + numChars, characters + numChars + 1);
    characters[index] = character;
    numChars++;
}

void BitMapFont::reallocate() {
    auto* larger = newArray<BitMapCharacter*>(2 * length(characters));
    std::copy_n(characters.get(), numChars, larger);
    characters.reset(larger);
}

void BitMapFont::setMissingChar(int32_t s) {
    if (s < 1) {
        addChar(new BitMapCharacter(MISSING_CHAR_CODE_POINT, s, 0, -s));
        return;
    }
    const int32_t edge = std::min(s, BitMapCharacter::kMaxEdgePx);
    std::vector<signed char> coverage(static_cast<size_t>(edge * edge));
    for (int32_t i = 0; i < edge * edge; i++) {
        const int32_t x = i % edge;
        const int32_t y = i / edge;
        const bool isBorder = x == 0 || y == 0 || x == edge - 1 || y == edge - 1;
        coverage[static_cast<size_t>(i)] = isBorder ? kFullCoverage : 0;
    }
    addChar(
        new BitMapCharacter(MISSING_CHAR_CODE_POINT, coverage.data(), edge, edge, edge, 0, -edge));
}

void BitMapFont::setLineHeight(int32_t lineHeight) {
    this->lineHeight = lineHeight;
    BitMapCharacter* space = getChar(kSpace);
    setMissingChar(space == nullptr ? DEFAULT_MISSING_CHAR_WIDTH : space->advanceWidth);
}

/// Index of the code point; if it is missing, the index at which to insert it.
int32_t BitMapFont::indexAtOrAfter(int32_t codePoint) const {
    BitMapCharacter** found =
        std::lower_bound(characters.get(), characters + numChars, codePoint,
                         [](const BitMapCharacter* character, int32_t wanted) {
                             return character->codePoint < wanted;
                         });
    return static_cast<int32_t>(found - characters);
}

BitMapCharacter* BitMapFont::getChar(int32_t codePoint) {
    const int32_t index = indexAtOrAfter(codePoint);
    const bool isThere = index < numChars && characters[index]->codePoint == codePoint;
    return characters[isThere ? index : 0];
}

int32_t BitMapFont::getIndexOfCodePoint(int32_t codePoint) {
    for (int32_t i = 0; i < numChars; i++) {
        if (characters[i]->codePoint == codePoint) {
            return i;
        }
    }
    return -1;
}

void BitMapFont::addNewCharactersFrom(BitMapFont* other) {
    for (int32_t i = 0; i < other->numChars; i++) {
        if (!hasCodePoint(other->characters[i]->codePoint)) {
            addChar(other->characters[i]);
        }
    }
}

String* BitMapFont::toString() {
    const String size = numberText(originalFontSize);
    StringBuffer text;
    text.append("original font name: ")->append(&originalFontName);
    text.append("\noriginal font size: ")->append(&size);
    text.append("\nline height:        ")->append(lineHeight);
    text.append("\nnumChars:           ")->append(numChars);
    for (int32_t i = 0; i < numChars; i++) {
        const std::unique_ptr<String> line(characters[i]->toString());
        text.append("\n")->append(line.get());
    }
    return text.toString();
}

/// Where the pen starts, relative to x, so that the first ink lies at x.
int32_t BitMapFont::inkStart(const String& text) {
    BitMapCharacter* first = getChar(text[0]);
    return first->pixels != nullptr ? first->ofsX : 0;
}

int32_t BitMapFont::getStringWidth(String* text) {
    const int32_t count = text->GetLength();
    if (count == 0) {
        return 0;
    }
    BitMapCharacter* last = getChar((*text)[count - 1]);
    return -inkStart(*text) + getCharStartX(text, count - 1) + last->ofsX + last->w;
}

int32_t BitMapFont::getCharStartX(String* text, int32_t index) {
    const int32_t end = std::min(index, text->GetLength() - 1);
    int32_t x = 0;
    for (int32_t i = 0; i < end; i++) {
        x += getChar((*text)[i])->advanceWidth;
    }
    return x;
}

/// Calls draw(character, left, top) for each character with a bitmap.
template <typename Draw>
void BitMapFont::forEachInked(const String& text, int32_t x, int32_t y, Draw draw) {
    if (text.IsEmpty()) {
        return;
    }
    const int32_t baseline = y + maxAbove;
    int32_t pen = x - inkStart(text);
    for (int32_t i = 0; i < text.GetLength(); i++) {
        BitMapCharacter* character = getChar(text[i]);
        if (character->pixels != nullptr) {
            draw(character, pen + character->ofsX, baseline + character->ofsY);
        }
        pen += character->advanceWidth;
    }
}

void BitMapFont::drawString(String* text, AppImage* image, int32_t x, int32_t y, uint32_t colour) {
    forEachInked(*text, x, y, [=](BitMapCharacter* character, int32_t left, int32_t top) {
        character->draw(image, left, top, colour);
    });
}

void BitMapFont::drawString(String* text,
                            AppImage* image,
                            int32_t x,
                            int32_t y,
                            int32_t clipX,
                            int32_t clipY,
                            int32_t clipW,
                            int32_t clipH,
                            uint32_t colour) {
    const int64_t endX = int64_t{x} + getStringWidth(text);
    const int64_t endY = int64_t{y} + maxAbove + maxBelow;
    const int64_t clipEndX = int64_t{clipX} + clipW;
    const int64_t clipEndY = int64_t{clipY} + clipH;
    if (x >= clipX && y >= clipY && endX <= clipEndX && endY <= clipEndY) {
        drawString(text, image, x, y, colour);
        return;
    }
    if (x >= clipEndX || y >= clipEndY || clipX >= endX || clipY >= endY) {
        return;
    }
    forEachInked(*text, x, y, [=](BitMapCharacter* character, int32_t left, int32_t top) {
        character->draw(image, left, top, clipX, clipY, clipW, clipH, colour);
    });
}
