// SPDX-License-Identifier: MIT
// Where things stand on the strip and on its sheet, in pixels of the program.
#pragma once

#include "ScreenTexts.h"

#include <cstdint>

class StripLayout {
public:
    static constexpr int32_t kWidthPx = 240;
    static constexpr int32_t kHeightPx = 80;
    static constexpr int32_t kSheetHeightPx = 320;

    static constexpr int32_t kMarginPx = 6;  // left and right of texts

    // The row of text at the top. A message of several rows covers the heads.
    static constexpr int32_t kLineTopPx = 0;
    static constexpr int32_t kLineHeightPx = 16;
    static constexpr int32_t kLinePx = kWidthPx - 2 * kMarginPx;
    static constexpr int32_t kMaxLines = 3;
    static constexpr int32_t kMessagePathPx = kLinePx * 3 / 2;  // the widest path within a message
    static constexpr int32_t kSecondsWidthPx = 34;  // at the row's right end, while recording
    static constexpr int32_t kActionPadPx = 5;      // on both sides of the word

    // The heads of the effects, or the level while recording.
    static constexpr int32_t kHeadsTopPx = 17;
    static constexpr int32_t kHeadWidthPx = 30;
    static constexpr int32_t kHeadHeightPx = 30;
    static constexpr int32_t kHeadPicturePx = 28;

    // Buttons: an icon above its word.
    static constexpr int32_t kKeys = 5;
    static constexpr int32_t kKeysTopPx = 48;
    static constexpr int32_t kSaveWidthPx = 56;  // the first key; "Speichern" is its longest word
    static constexpr int32_t kKeyWidthPx = 46;   // each of the others
    static constexpr int32_t kKeyHeightPx = 31;
    static constexpr int32_t kIconPx = 16;
    static constexpr int32_t kIconTopPx = kKeysTopPx + 1;
    static constexpr int32_t kWordTopPx = kKeysTopPx + 17;
    static constexpr int32_t kWordPadPx = 1;  // at least, left and right of a word

    // The sheet; y counts from its own top.
    static constexpr int32_t kTitleTopPx = 8;
    static constexpr int32_t kRowsTopPx = 34;
    static constexpr int32_t kChoiceHeightPx = 25;
    static constexpr int32_t kMaxChoices = 10;
    static constexpr int32_t kTextRowHeightPx = 16;
    static constexpr int32_t kParagraphGapPx = 4;  // height of an empty row
    static constexpr int32_t kSheetMarginPx = 10;
    static constexpr int32_t kSheetTextPx = kWidthPx - 2 * kSheetMarginPx;
    static constexpr int32_t kCloseHeightPx = 32;  // of the button "Close" at its lower edge

    // Further buttons of the help, above "Close".
    static constexpr int32_t kMoreKeys = 3;
    static constexpr int32_t kMoreWidthPx = kSheetTextPx / kMoreKeys;
    static constexpr int32_t kMoreHeightPx = 28;

    static constexpr ScreenPlace head(int32_t index) {
        return {index * kHeadWidthPx, kHeadsTopPx, kHeadWidthPx, kHeadHeightPx};
    }

    static constexpr ScreenPlace keyOf(int32_t index) {
        if (index == 0) {
            return {0, kKeysTopPx, kSaveWidthPx, kKeyHeightPx};
        }
        return {kSaveWidthPx + (index - 1) * kKeyWidthPx, kKeysTopPx, kKeyWidthPx, kKeyHeightPx};
    }

    /// A row of the list on the sheet; y counts from the strip's top.
    static constexpr ScreenPlace choice(int32_t index) {
        return {0, kHeightPx + kRowsTopPx + index * kChoiceHeightPx, kWidthPx, kChoiceHeightPx};
    }

    static constexpr ScreenPlace more(int32_t index) {
        return {kSheetMarginPx + index * kMoreWidthPx,
                kHeightPx + kSheetHeightPx - kCloseHeightPx - kMoreHeightPx, kMoreWidthPx,
                kMoreHeightPx};
    }

    static constexpr ScreenPlace close() {
        return {0, kHeightPx + kSheetHeightPx - kCloseHeightPx, kWidthPx, kCloseHeightPx};
    }
};
