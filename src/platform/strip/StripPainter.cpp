// SPDX-License-Identifier: MIT
#include "StripPainter.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "HostWords.h"
#include "Rgb565.h"
#include "StripBrush.h"
#include "StripLayout.h"
#include "StripPictures.h"

using Kind = StripWish::Kind;
using Part = StripButton::Part;

namespace {

// Dark glass with a warm rim, like the program's own windows. Red and blue are equal: the display
// has five bits for each, so both change in the same rows, and no band of the fade looks reddish.
constexpr uint32_t kGlassTopArgb = 0xFF301C30;
constexpr uint32_t kGlassArgb = 0xFF180C18;
constexpr uint32_t kEdgeArgb = 0x8CFFD9A0;
constexpr uint32_t kSheenArgb = 0x18FFFFFF;
constexpr uint32_t kGrooveArgb = 0x90000000;
constexpr uint32_t kWhiteArgb = 0xFFFFFFFF;
constexpr uint32_t kSoftArgb = 0xC0FFFFFF;    // text of minor weight
constexpr uint32_t kGreyArgb = 0x60FFFFFF;    // disabled buttons
constexpr uint32_t kAbsentArgb = 0xA0FFFFFF;  // a device in the list; readable on a lit row too
constexpr uint32_t kMessageArgb = 0xFF482840;
constexpr uint32_t kActionArgb = 0xFFFFD9A0;
constexpr uint32_t kActionTextArgb = 0xFF2A1420;
constexpr uint32_t kLitArgb = 0x38FFFFFF;

constexpr int32_t kOpaque = 256;
constexpr int32_t kOtherHead = 176;  // of 256: dim, so that the current one stands out
constexpr int32_t kGreyIcon = 90;    // of 256

// The level: segments of four pixels, of which the last one is a dark gap.
constexpr int32_t kSegmentPx = 4;
constexpr int32_t kSegments = 54;
constexpr int32_t kLevelTopPx = StripLayout::kHeadsTopPx + 3;
constexpr int32_t kLevelHeightPx = 12;
constexpr int32_t kScaleTopPx = kLevelTopPx + kLevelHeightPx + 2;
constexpr int32_t kClippedPx = 10;
constexpr uint32_t kQuietArgb = 0xFF58D17A;
constexpr uint32_t kLoudArgb = 0xFFFFC24A;
constexpr uint32_t kTooLoudArgb = 0xFFFF5A4A;
constexpr int32_t kLoudDb = -12;
constexpr int32_t kTooLoudDb = -3;
constexpr uint32_t kUnlitMask = 0x30FFFFFF;
constexpr uint32_t kPeakMask = 0x90FFFFFF;  // segments between mean and peak

/// The level in dB from which on a segment is lit.
int32_t dbOf(int32_t segment) {
    return LevelMeter::kFloorDb - LevelMeter::kFloorDb * (segment + 1) / kSegments;
}

uint32_t colourOf(int32_t db) {
    if (db > kTooLoudDb) {
        return kTooLoudArgb;
    }
    return db > kLoudDb ? kLoudArgb : kQuietArgb;
}

void paintGlass(StripBrush& brush) {
    brush.fade({0, 0, StripLayout::kWidthPx, StripLayout::kHeightPx}, kGlassTopArgb, kGlassArgb);
    brush.fill({0, 0, StripLayout::kWidthPx, 1}, kSheenArgb);
    brush.fill({0, StripLayout::kHeightPx - 1, StripLayout::kWidthPx, 1}, kEdgeArgb);
}

void paintLines(StripBrush& brush, BitMapFont* font, const StripModel& model) {
    const auto rows = static_cast<int32_t>(model.lines().size());
    if (rows > 0 && model.isTelling()) {
        const ScreenPlace panel{1, StripLayout::kLineTopPx + 1, StripLayout::kWidthPx - 2,
                                rows * StripLayout::kLineHeightPx};
        brush.fillRounded(panel, kMessageArgb);
    }
    int32_t y = StripLayout::kLineTopPx + 1;
    for (const std::string& line : model.lines()) {
        brush.text(font, line, StripLayout::kMarginPx, y,
                   model.isTelling() ? kWhiteArgb : kSoftArgb);
        y += StripLayout::kLineHeightPx;
    }
    if (model.secondsLeft() >= 0) {
        const std::string left = std::to_string(model.secondsLeft()) + " " +
                                 HostWords::text("seconds", model.language());
        brush.text(font, left,
                   StripLayout::kWidthPx - StripLayout::kMarginPx - StripBrush::widthOf(font, left),
                   StripLayout::kLineTopPx + 1, kWhiteArgb);
    }
    const StripButton action = model.action();
    if (action.wish) {
        const ScreenPlace& place = action.place;
        brush.fillRounded({place.x, place.y + 2, place.w, place.h - 2}, kActionArgb);
        brush.textInMiddle(font, action.name, place.x, place.w, place.y + 1, kActionTextArgb);
    }
}

void paintLevel(StripBrush& brush, BitMapFont* font, const LevelMeter::Reading& level) {
    const int32_t left = StripLayout::kMarginPx;
    brush.fillRounded({left - 2, kLevelTopPx - 2, kSegments * kSegmentPx + 3, kLevelHeightPx + 4},
                      kGrooveArgb);
    for (int32_t i = 0; i < kSegments; i++) {
        const int32_t db = dbOf(i);
        uint32_t argb = colourOf(db) & kUnlitMask;
        if (db <= level.meanDb) {
            argb = colourOf(db);
        } else if (db <= level.peakDb) {
            argb = colourOf(db) & kPeakMask;
        }
        brush.fill({left + i * kSegmentPx, kLevelTopPx, kSegmentPx - 1, kLevelHeightPx}, argb);
    }
    for (const int32_t db : {-50, -40, -30, -20, -10, 0}) {
        const std::string number = std::to_string(db);
        const int32_t x =
            left + (db - LevelMeter::kFloorDb) * kSegments * kSegmentPx / -LevelMeter::kFloorDb;
        brush.text(font, number, x - StripBrush::widthOf(font, number), kScaleTopPx, kGreyArgb);
    }
    const ScreenPlace lamp{left + kSegments * kSegmentPx + 3, kLevelTopPx + 1, kClippedPx,
                           kClippedPx};
    brush.fillRounded(lamp, level.isClipped ? kTooLoudArgb : kTooLoudArgb & kUnlitMask);
}

void paintHead(StripBrush& brush, AppImage* heads, const StripButton& head) {
    const ScreenPlace& place = head.place;
    if (head.isLit) {
        brush.fillRounded(place, kLitArgb);
        brush.frameRounded(place, kActionArgb);
    }
    brush.cell(heads, StripModel::kEffects, head.wish.index,
               place.x + (place.w - StripLayout::kHeadPicturePx) / 2,
               place.y + (place.h - StripLayout::kHeadPicturePx) / 2,
               head.isLit ? kOpaque : kOtherHead);
}

void paintKey(StripBrush& brush, const StripPictures& pictures, const StripButton& key) {
    const ScreenPlace& place = key.place;
    const int32_t index =
        place.x == 0 ? 0 : 1 + (place.x - StripLayout::kSaveWidthPx) / StripLayout::kKeyWidthPx;
    if (index > 0) {
        brush.fill({place.x, place.y + 4, 1, place.h - 9}, kSheenArgb);
    }
    brush.cell(pictures.icons.get(), StripLayout::kKeys, index,
               place.x + (place.w - StripLayout::kIconPx) / 2, StripLayout::kIconTopPx,
               key.isEnabled ? kOpaque : kGreyIcon);
    brush.textInMiddle(pictures.font.get(), key.name, place.x, place.w, StripLayout::kWordTopPx,
                       key.isEnabled ? kWhiteArgb : kGreyArgb);
}

void paintChoice(StripBrush& brush,
                 BitMapFont* font,
                 const StripButton& choice,
                 const TextRows::Width& widthOf) {
    ScreenPlace place = choice.place;
    place.y -= StripLayout::kHeightPx;
    if (choice.isLit) {
        const ScreenPlace bar{place.x + 4, place.y + 1, place.w - 8, place.h - 2};
        brush.fillRounded(bar, kLitArgb);
        brush.frameRounded(bar, kActionArgb);
    }
    brush.text(font, TextRows::cut(choice.name, StripLayout::kSheetTextPx, widthOf),
               StripLayout::kSheetMarginPx, place.y + 5,
               choice.isEnabled ? kWhiteArgb : kAbsentArgb);
}

void paintMore(StripBrush& brush, BitMapFont* font, const StripButton& button) {
    ScreenPlace place = button.place;
    place.y -= StripLayout::kHeightPx;
    const ScreenPlace key{place.x + 1, place.y + 1, place.w - 2, place.h - 6};
    brush.fillRounded(key, kSheenArgb);
    brush.textInMiddle(font, button.name, place.x, place.w, place.y + 4,
                       button.isEnabled ? kActionArgb : kGreyArgb);
}

bool isMore(const StripButton& button) {
    return button.wish.kind == Kind::kExport || button.wish.kind == Kind::kBringBack ||
           button.wish.kind == Kind::kForget;
}

/// Paints a white frame of two lines, which is visible on a lit button too.
void paintFocus(StripBrush& brush, const StripButton& button) {
    ScreenPlace outer = button.place;
    outer.y -= StripLayout::kHeightPx;
    outer = isMore(button) ? ScreenPlace{outer.x, outer.y, outer.w, outer.h - 4}
                           : ScreenPlace{outer.x + 4, outer.y + 1, outer.w - 8, outer.h - 2};
    brush.frameRounded(outer, kWhiteArgb);
    brush.frameRounded({outer.x + 1, outer.y + 1, outer.w - 2, outer.h - 2}, kWhiteArgb);
}

void paintSheetRows(StripBrush& brush, BitMapFont* font, const std::vector<std::string>& rows) {
    int32_t y = StripLayout::kRowsTopPx;
    for (const std::string& row : rows) {
        brush.text(font, row, StripLayout::kSheetMarginPx, y, kWhiteArgb);
        y += row.empty() ? StripLayout::kParagraphGapPx : StripLayout::kTextRowHeightPx;
    }
}

void copy565(AppImage& image, uint16_t* rgb565, int32_t strideBytes) {
    const ptrdiff_t stride = strideBytes / static_cast<int32_t>(sizeof(uint16_t));
    for (ptrdiff_t y = 0; y < image.h; y++) {
        Rgb565::storeRow(rgb565 + y * stride, image.pixels.get() + y * image.w, image.w);
    }
}

}  // namespace

StripPainter::StripPainter()
    : pictures(std::make_unique<StripPictures>())
    , strip(std::make_unique<AppImage>(StripModel::kWidthPx, StripModel::kHeightPx)) {}

StripPainter::~StripPainter() = default;

int32_t StripPainter::textWidth(const std::string& utf8) const {
    return StripBrush::widthOf(pictures->font.get(), utf8);
}

void StripPainter::paint(const StripModel& model, uint16_t* rgb565, int32_t strideBytes) {
    StripBrush brush(*strip);
    BitMapFont* font = pictures->font.get();
    paintGlass(brush);
    if (model.showsLevel() && model.lines().size() <= 1) {
        paintLevel(brush, font, model.level());
    }
    paintLines(brush, font, model);
    for (const StripButton& button : model.buttons()) {
        if (button.part == Part::kHeads) {
            paintHead(brush, pictures->heads.get(), button);
        } else if (button.part == Part::kKeys) {
            paintKey(brush, *pictures, button);
        }
    }
    copy565(*strip, rgb565, strideBytes);
}

void StripPainter::paintSheet(const StripModel& model, uint16_t* rgb565, int32_t strideBytes) {
    if (sheet == nullptr) {
        sheet = std::make_unique<AppImage>(StripModel::kWidthPx, StripModel::kSheetHeightPx);
    }
    StripBrush brush(*sheet);
    BitMapFont* font = pictures->font.get();
    const ScreenPlace whole{0, 0, StripModel::kWidthPx, StripModel::kSheetHeightPx};
    brush.fade(whole, kGlassTopArgb, kGlassArgb);
    brush.frameRounded({2, 2, whole.w - 4, whole.h - 4}, kEdgeArgb);
    brush.textInMiddle(pictures->titleFont.get(), model.sheetTitle(), 0, whole.w,
                       StripLayout::kTitleTopPx, kWhiteArgb);
    paintSheetRows(brush, font, model.sheetRows());
    for (const StripButton& button : model.buttons()) {
        if (button.part != Part::kSheet) {
            continue;
        }
        if (button.wish.kind == Kind::kClose) {
            const int32_t y = button.place.y - StripModel::kHeightPx;
            brush.fill({StripLayout::kSheetMarginPx, y, StripLayout::kSheetTextPx, 1}, kSheenArgb);
            brush.textInMiddle(font, button.name, 0, whole.w, y + 8, kActionArgb);
        } else if (isMore(button)) {
            paintMore(brush, font, button);
        } else {
            paintChoice(brush, font, button,
                        [this](const std::string& utf8) { return textWidth(utf8); });
        }
    }
    if (const StripButton focus = model.shownFocus(); focus.wish) {
        paintFocus(brush, focus);
    }
    copy565(*sheet, rgb565, strideBytes);
}
