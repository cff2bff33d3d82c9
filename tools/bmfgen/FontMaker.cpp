// SPDX-License-Identifier: MIT
#include "FontMaker.h"

#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "CoverageMap.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr int32_t kUnitsPerPixel = 64;  // 26.6 fixed point
constexpr int32_t kDotsPerInch = 72;    // so that points are pixels
constexpr double kSmallestPx = 4.0;
constexpr double kLargestPx = 100.0;  // larger glyphs and lines do not fit the file's bytes

int32_t rounded(int64_t units) {
    return static_cast<int32_t>((units + kUnitsPerPixel / 2) >> 6);
}

FT_Int32 loadFlags(FontMaker::Hinting hinting) {
    constexpr FT_Int32 kOutlines = FT_LOAD_RENDER | FT_LOAD_NO_BITMAP;  // never a built-in bitmap
    switch (hinting) {
    case FontMaker::Hinting::kAuto:
        return kOutlines | FT_LOAD_FORCE_AUTOHINT;
    case FontMaker::Hinting::kLight:
        return kOutlines | FT_LOAD_TARGET_LIGHT;
    case FontMaker::Hinting::kNone:
        return kOutlines | FT_LOAD_NO_HINTING;
    default:
        return kOutlines;
    }
}

std::string codePointName(char16_t codePoint) {
    char text[8];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(codePoint));
    return text;
}

bool fitsSignedByte(int32_t value) {
    return value >= -128 && value <= 127;
}

}  // namespace

FontMaker::FontMaker() {
    if (FT_Init_FreeType(&library) != 0) {
        library = nullptr;
    }
}

FontMaker::~FontMaker() {
    if (face != nullptr) {
        FT_Done_Face(face);
    }
    if (library != nullptr) {
        FT_Done_FreeType(library);
    }
}

std::vector<char16_t> FontMaker::characters() {
    std::vector<char16_t> all;
    for (char16_t c = 0x20; c <= 0xFF; c++) {
        if (c < 0x7F || c >= 0xA0) {
            all.push_back(c);
        }
    }
    // The other characters of ISO 8859-15, then dashes, quotes, bullet, ellipsis, the euro sign.
    const std::u16string more = u"\u0152\u0153\u0160\u0161\u0178\u017D\u017E"
                                u"\u2013\u2014\u2018\u2019\u201A\u201C\u201D\u201E"
                                u"\u2022\u2026\u2039\u203A\u20AC";
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

std::unique_ptr<BitMapFont>
FontMaker::make(const std::string& path, double sizePx, const std::string& name, Hinting hinting) {
    if (!open(path, sizePx)) {
        return nullptr;
    }
    const FT_Size_Metrics& metrics = face->size->metrics;
    const int32_t lineHeight = rounded(metrics.height);
    if (lineHeight > 127) {
        message = "the lines are higher than 127 pixels";
        return nullptr;
    }
    const char* family = face->family_name == nullptr ? "n/a" : face->family_name;
    Osp::Base::String fontName(name.empty() ? family : name.c_str());
    auto font = std::make_unique<BitMapFont>(&fontName, static_cast<float>(sizePx), lineHeight);
    if (!addCharacters(*font, hinting)) {
        return nullptr;
    }
    font->setLineHeight(lineHeight);  // last, when the space's width is known
    return font;
}

bool FontMaker::open(const std::string& path, double sizePx) {
    if (library == nullptr) {
        message = "FreeType does not start";
        return false;
    }
    if (!(sizePx >= kSmallestPx && sizePx <= kLargestPx)) {
        message = "the size must lie between 4 and 100 pixels";
        return false;
    }
    if (face != nullptr) {
        FT_Done_Face(face);
        face = nullptr;
    }
    if (FT_New_Face(library, path.c_str(), 0, &face) != 0) {
        face = nullptr;
        message = path + " is not a font that can be read";
        return false;
    }
    const auto size = static_cast<FT_F26Dot6>(std::lround(sizePx * kUnitsPerPixel));
    if (FT_Set_Char_Size(face, 0, size, kDotsPerInch, kDotsPerInch) != 0) {
        message = path + " has no outlines for this size";
        return false;
    }
    return true;
}

bool FontMaker::addCharacters(BitMapFont& font, Hinting hinting) {
    for (const char16_t codePoint : characters()) {
        BitMapCharacter* character = makeCharacter(codePoint, hinting);
        if (character == nullptr) {
            return false;
        }
        font.addChar(character);
    }
    return true;
}

BitMapCharacter* FontMaker::makeCharacter(char16_t codePoint, Hinting hinting) {
    const FT_UInt index = FT_Get_Char_Index(face, codePoint);
    if (index == 0) {
        message = "the font lacks " + codePointName(codePoint);
        return nullptr;
    }
    if (FT_Load_Glyph(face, index, loadFlags(hinting)) != 0) {
        message = "the font cannot draw " + codePointName(codePoint);
        return nullptr;
    }
    const FT_GlyphSlotRec_* slot = face->glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    CoverageMap map(static_cast<int32_t>(bitmap.width), static_cast<int32_t>(bitmap.rows));
    for (int32_t y = 0; y < map.height(); y++) {
        for (int32_t x = 0; x < map.width(); x++) {
            map.set(x, y, bitmap.buffer[y * bitmap.pitch + x]);
        }
    }
    const int32_t advance = rounded(slot->advance.x);
    const int32_t left = slot->bitmap_left;
    const int32_t top = -slot->bitmap_top;
    if (!fitsSignedByte(advance) || !fitsSignedByte(left) || !fitsSignedByte(top) ||
        map.width() > BitMapCharacter::kMaxEdgePx || map.height() > BitMapCharacter::kMaxEdgePx) {
        message = codePointName(codePoint) + " is too large for the file";
        return nullptr;
    }
    return map.toCharacter(codePoint, advance, left, top);
}
