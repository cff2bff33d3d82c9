// SPDX-License-Identifier: MIT
// Makes a bitmap font from an outline font: hinted, 4-bit coverage, every character that the
// application's languages and their typography need.
#pragma once

#include <memory>
#include <string>
#include <vector>

class BitMapCharacter;
class BitMapFont;
struct FT_FaceRec_;
struct FT_LibraryRec_;

class FontMaker {
public:
    enum class Hinting {
        kNative,  // the font's own instructions
        kAuto,    // computed, both directions
        kLight,   // computed, heights only
        kNone
    };

    FontMaker();
    FontMaker(const FontMaker&) = delete;
    FontMaker& operator=(const FontMaker&) = delete;
    ~FontMaker();

    /// ISO 8859-1 and 8859-15, typographic quotes, dashes, bullet and ellipsis, in ascending order.
    static std::vector<char16_t> characters();

    /// @param sizePx  pixels per em
    /// @return the font; null if it could not be made, error() says why
    std::unique_ptr<BitMapFont>
    make(const std::string& path, double sizePx, const std::string& name, Hinting hinting);

    const std::string& error() const { return message; }

private:
    bool open(const std::string& path, double sizePx);
    bool addCharacters(BitMapFont& font, Hinting hinting);
    BitMapCharacter* makeCharacter(char16_t codePoint, Hinting hinting);

    FT_LibraryRec_* library = nullptr;
    FT_FaceRec_* face = nullptr;
    std::string message;
};
