// SPDX-License-Identifier: MIT
#include "Gallery.h"

#include "Array.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "Fx.h"
#include "PaColor.h"
#include "PaImage.h"
#include "Res.h"
#include "Samples.h"
#include "Sheet.h"
#include "Str.h"
#include "StrFit.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr uint32_t kTable = 0xFF26282C;  // background of the sheet
constexpr uint32_t kWhite = 0xFFFFFFFF;
constexpr uint32_t kGrey = 0xFFA0A4AA;
constexpr uint32_t kRed = 0xFFFF6050;
constexpr int32_t kScreenW = 240;
constexpr int32_t kScreenH = 320;
constexpr int32_t kGapPx = 8;
constexpr int32_t kColumns = 5;
constexpr int32_t kSheetW = kColumns * (kScreenW + kGapPx) + kGapPx;
constexpr int32_t kSheetH = 8000;  // cut to the rows that are used
constexpr const char* kMedium = "/Res/bmf15.bmf";
constexpr const char* kSmall = "/Res/bmf13.bmf";
constexpr const char* kBackground = "/Res/background_0_0_240_320.png";

/// Names of the files with the given ending, sorted, without folder.
std::vector<std::string> filesIn(const std::string& folder, const std::string& ending) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        const std::string name = entry.path().filename().string();
        if (name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string describe(const StrFit& fit) {
    return fit.name + ", " + fit.place + ": " + std::to_string(fit.usedPx) + "/" +
           std::to_string(fit.limitPx);
}

int32_t columnX(int32_t column) {
    return kGapPx + column % kColumns * (kScreenW + kGapPx);
}

}  // namespace

bool Gallery::showAll(const std::string& data, const std::string& out, int32_t scale) {
    Sheet sheet(kSheetW, kSheetH, kTable);
    int32_t y = showScenes(sheet, kGapPx);
    y = showPictures(sheet, y, data);
    y = showFonts(sheet, y);
    y = showTexts(sheet, y);
    y = showFits(sheet, y);
    return sheet.save(out, y, scale);
}

/// Shows every creature in front of the recorder, with the bands over it.
int32_t Gallery::showScenes(Sheet& sheet, int32_t y) {
    PaImage background;
    background.set(kBackground, true, true);
    PaImage microphone;
    microphone.set("/Res/mic_overlay_13_151_49_42.png", true, false);
    PaImage wheels;
    wheels.set("/Res/wheels_overlay_175_179_57_14.png", true, false);
    const Array<Fx*> effects(Fx::newCatalogue());
    const int32_t medium = Res::addFont(kMedium);
    Samples samples(medium, Res::addFont(kSmall));
    int32_t column = 0;
    for (int32_t i = 0; i < length(effects); i++) {
        const std::unique_ptr<Fx> effect(effects[i]);
        const int32_t x = columnX(column);
        for (PaImage* layer : {&background, effect->image, &microphone, &wheels}) {
            sheet.paint(*layer, x, y);
        }
        Res::setCurrLangIndex(column % Res::kLanguages);
        samples.paintHeader(sheet, x, y, effect->name);
        samples.paintBar(sheet, x, y + kScreenH - Samples::kBarPx, Str::str_SK_OPTIONS,
                         Str::str_SK_PLAY, Str::str_SK_QUIT);
        column++;
        y += column % kColumns == 0 ? kScreenH + kGapPx : 0;
    }
    return y + kScreenH + kGapPx;
}

/// Shows every picture by itself, at its place over the darkened background.
int32_t Gallery::showPictures(Sheet& sheet, int32_t y, const std::string& data) {
    int32_t column = 0;
    for (const std::string& name : filesIn(data + "/Res", ".png")) {
        const int32_t x = columnX(column);
        PaImage background;
        background.set(kBackground, true, true);
        sheet.paint(background, x, y);
        PaColor shade;
        shade.set(0xA0000000);
        Bounds::set(&shade, 0, 0, kScreenW, kScreenH);
        sheet.paint(shade, x, y);
        PaImage picture;
        picture.set(("/Res/" + name).c_str(), true, false);
        sheet.paint(picture, x, y);
        const std::string size =
            std::to_string(picture.getWidth()) + " x " + std::to_string(picture.getHeight());
        sheet.print(name, Res::FntDef, x + 2, y + kScreenH - 30, kWhite);
        sheet.print(size, Res::FntDef, x + 2, y + kScreenH - 16,
                    picture.getWidth() > 0 ? kGrey : kRed);
        column++;
        y += column % kColumns == 0 ? kScreenH + kGapPx : 0;
    }
    return y + (column % kColumns == 0 ? 0 : kScreenH + kGapPx);
}

/// Shows every character of every font.
int32_t Gallery::showFonts(Sheet& sheet, int32_t y) {
    const int32_t fonts[] = {Res::addFont(kMedium), Res::addFont(kSmall), Res::FntDef};
    for (const int32_t id : fonts) {
        BitMapFont* font = Res::getFont(id);
        if (font == nullptr) {
            continue;
        }
        const int32_t rowPx = font->getMaxHeight() + 2;
        sheet.print(font->getOriginalFontName()->ToUtf8() + ", line height " +
                        std::to_string(font->getLineHeight()) + ", " +
                        std::to_string(font->getMaxAbove()) + " above and " +
                        std::to_string(font->getMaxBelow()) + " below the baseline",
                    id, kGapPx, y, kGrey);
        y += rowPx;
        int32_t x = kGapPx;
        for (int32_t i = 0; i < font->getNumChars(); i++) {
            BitMapCharacter* character = font->getCharAtIndex(i);
            if (x + character->advanceWidth + kGapPx > kSheetW) {
                x = kGapPx;
                y += rowPx;
            }
            if (character->pixels != nullptr) {
                character->draw(&sheet.image, x + character->ofsX,
                                y + font->getMaxAbove() + character->ofsY, kWhite);
            }
            x += character->advanceWidth + 3;
        }
        y += rowPx + kGapPx;
    }
    return y;
}

int32_t Gallery::showTexts(Sheet& sheet, int32_t y) {
    const int32_t medium = Res::addFont(kMedium);
    const int32_t small = Res::addFont(kSmall);
    Samples samples(medium, small);
    int32_t bottom = y;
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        bottom = std::max(bottom, samples.paintLanguage(sheet, columnX(language), y, language));
    }
    return bottom + kGapPx;
}

/// Shows one line for each text and place, with the pixels that it needs and those that there are;
/// red if it does not fit.
int32_t Gallery::showFits(Sheet& sheet, int32_t y) {
    const int32_t medium = Res::addFont(kMedium);
    const int32_t small = Res::addFont(kSmall);
    if (Res::getFont(medium) == nullptr || Res::getFont(small) == nullptr) {
        return y;
    }
    constexpr int32_t kLinePx = 13;
    const std::vector<StrFit> fits = StrFit::measureAll(medium, small);
    int32_t lines[kColumns] = {};
    for (const StrFit& fit : fits) {
        sheet.print(describe(fit), Res::FntDef, columnX(fit.language),
                    y + kLinePx * lines[fit.language]++, fit.fits() ? kGrey : kRed);
    }
    return y + kLinePx * *std::max_element(lines, lines + kColumns) + kGapPx;
}

bool Gallery::compareFonts(const std::string& candidates, const std::string& out, int32_t scale) {
    constexpr const char* kSmallEnding = "_13.bmf";
    const std::vector<std::string> names = filesIn(candidates, kSmallEnding);
    const auto columns = static_cast<int32_t>(names.size());
    Sheet sheet(columns * (kScreenW + kGapPx) + kGapPx, kSheetH, kTable);
    int32_t bottom = 0;
    for (int32_t column = 0; column < columns; column++) {
        const std::string& file = names[static_cast<size_t>(column)];
        const std::string name = file.substr(0, file.size() - std::string(kSmallEnding).size());
        const int32_t medium = Res::addFont(("/Home/" + name + "_15.bmf").c_str());
        const int32_t small = Res::addFont(("/Home/" + file).c_str());
        const int32_t x = kGapPx + column * (kScreenW + kGapPx);
        int32_t y = kGapPx;
        sheet.print(name, small, x, y, kGrey);
        y += 20;
        Samples samples(medium, small);
        for (int32_t language = 0; language < Res::kLanguages; language++) {
            y = samples.paintLanguage(sheet, x, y, language);
        }
        for (const StrFit& fit : StrFit::measureAll(medium, small)) {
            if (!fit.fits()) {
                std::cout << name << ": " << describe(fit) << "\n";
            }
        }
        bottom = std::max(bottom, y);
    }
    return sheet.save(out, bottom, scale);
}
