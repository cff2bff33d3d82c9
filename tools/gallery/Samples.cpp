// SPDX-License-Identifier: MIT
#include "Samples.h"

#include "Bounds.h"
#include "PaTextArea.h"
#include "PaTextLabel.h"
#include "Res.h"
#include "Sheet.h"
#include "Str.h"

namespace {

constexpr uint32_t kWhite = 0xFFFFFFFF;
constexpr int32_t kHeaderPx = 26;
constexpr int32_t kNameYPx = 6;
constexpr int32_t kMarginPx = 8;
constexpr int32_t kSideYPx = 10;   // top of a side label in the bar
constexpr int32_t kMiddleYPx = 8;  // top of the middle label
constexpr int32_t kMessagePx = 180;
constexpr int32_t kBoxPx = 220;
constexpr int32_t kBoxRimPx = 30;  // above and below a message

}  // namespace

Samples::Samples(int32_t medium, int32_t small)
    : medium(medium)
    , small(small) {
    bar.set("/Res/footer_bg_x0y15.png", true, false);
    box.set("/Res/menu_bg_x16y16.png", true, false);
}

int32_t Samples::paintLanguage(Sheet& sheet, int32_t x, int32_t y, int32_t language) {
    Res::setCurrLangIndex(language);
    paintBar(sheet, x, y, Str::str_SK_OPTIONS, Str::str_SK_PLAY, Str::str_SK_QUIT);
    y += kBarPx + 2;
    paintBar(sheet, x, y, Res::Null, Str::str_SK_RECORD, Str::str_SK_BACK);
    y += kBarPx;
    paintHeader(sheet, x, y, Str::str_FX_INTONATION_FLIP);
    y += kHeaderPx;
    y = paintMessage(sheet, x, y, Str::str_HELP_TXT, small) + 2;
    return paintMessage(sheet, x, y, Str::str_START_RECORDING, medium) + kBarPx / 2;
}

void Samples::paintHeader(Sheet& sheet, int32_t x, int32_t y, int32_t name) {
    label(sheet, name, medium, Bounds::kCentre | Bounds::kTop, x + kWidthPx / 2, y + kNameYPx);
}

void Samples::paintBar(
    Sheet& sheet, int32_t x, int32_t y, int32_t left, int32_t middle, int32_t right) {
    Bounds::set(&bar, 0, 0, kWidthPx, kBarPx);
    sheet.paint(bar, x, y);
    label(sheet, left, small, Bounds::kLeft | Bounds::kTop, x + kMarginPx, y + kSideYPx);
    label(sheet, middle, medium, Bounds::kCentre | Bounds::kTop, x + kWidthPx / 2, y + kMiddleYPx);
    label(sheet, right, small, Bounds::kRight | Bounds::kTop, x + kWidthPx - 1 - kMarginPx,
          y + kSideYPx);
}

int32_t Samples::paintMessage(Sheet& sheet, int32_t x, int32_t y, int32_t text, int32_t font) {
    PaTextArea area;
    area.set(text, font, kWhite, Bounds::kCentre, 0, 0, kMessagePx, 0);
    area.setHeight(area.getTextHeight());
    const int32_t boxHeight = area.getTextHeight() + 2 * kBoxRimPx;
    Bounds::set(&box, (kWidthPx - kBoxPx) / 2, 0, kBoxPx, boxHeight);
    Bounds::setPos(&area, Bounds::kCentre, &box, Bounds::kCentre, 0, 0);
    sheet.paint(box, x, y);
    sheet.paint(area, x, y);
    return y + boxHeight;
}

void Samples::label(
    Sheet& sheet, int32_t text, int32_t font, int32_t anchor, int32_t x, int32_t y) const {
    PaTextLabel label(text, font, kWhite);
    Bounds::setPos(&label, anchor, x, y);
    sheet.paint(label, 0, 0);
}
