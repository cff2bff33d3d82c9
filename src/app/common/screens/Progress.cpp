// SPDX-License-Identifier: MIT
#include "Progress.h"

#include "AppImage.h"
#include "Bounds.h"
#include "Chrome.h"
#include "G.h"
#include "ImageOps.h"
#include "Orm.h"
#include "PaStretcher.h"
#include "PaTextArea.h"

#include <algorithm>

namespace {

// A slim window between the header and the creature's face: below it the creature watches, and the
// recorder's light, wheels and keys move.
constexpr int32_t kLeftPx = 10;
constexpr int32_t kTopPx = 25;
constexpr int32_t kWidthPx = 220;
constexpr int32_t kHeightPx = 47;
constexpr int32_t kCaptionTopPx = kTopPx + 6;
constexpr int32_t kCaptionWidthPx = 180;
constexpr int32_t kCaptionHeightPx = 20;
constexpr int32_t kBarLeftPx = 30;
constexpr int32_t kBarTopPx = kTopPx + 27;
constexpr int32_t kBarWidthPx = 180;
constexpr int32_t kBarHeightPx = 12;
constexpr int32_t kFullQ10 = 1024;

constexpr uint32_t kFrameArgb = 0xFFE8E0D0;  // the ivory of the recorder's keys
constexpr uint32_t kTroughArgb = 0xFF2A2420;
constexpr uint32_t kFillArgb = 0xFFF08A24;  // and the amber of its light
constexpr uint32_t kShineArgb = 0xFFFFC06A;

void fill(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h) {
    if (w > 0 && h > 0) {
        ImageOps::blend(G::scr, argb, x, y, w, h, G::scrB, nullptr);
    }
}

}  // namespace

bool Progress::visible;
int32_t Progress::shownQ10;
int32_t Progress::paintedPx;
std::unique_ptr<PaTextArea> Progress::caption;
std::unique_ptr<Bounds> Progress::bar;

void Progress::static_ctor() {
    visible = false;
    shownQ10 = 0;
    paintedPx = 0;
    caption = std::make_unique<PaTextArea>();
    bar.reset(Bounds::alloc(kBarLeftPx, kBarTopPx, kBarWidthPx, kBarHeightPx));
}

void Progress::static_dtor() {
    caption.reset();
    bar.reset();
}

void Progress::paintInit(int32_t captionId) {
    visible = true;
    Bounds::set(G::psWndBg, kLeftPx, kTopPx, kWidthPx, kHeightPx);
    G::psWndBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    const int32_t x = (Bounds::getWidth(G::scrB) - kCaptionWidthPx) / 2;
    caption->set(captionId, G::fntMedium, Chrome::kWhite, Bounds::kCentre, x, kCaptionTopPx,
                 kCaptionWidthPx, kCaptionHeightPx);
    caption->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    shownQ10 = 0;
    paintBar(0);
}

void Progress::paintProgress(int32_t progress) {
    shownQ10 = std::clamp(progress, 0, kFullQ10);
    const int32_t filled = (bar->w - 4) * shownQ10 / kFullQ10;
    if (!visible || filled != paintedPx) {
        paintBar(filled);
    }
}

void Progress::paintBar(int32_t filled) {
    paintedPx = filled;
    fill(kFrameArgb, bar->x, bar->y, bar->w, bar->h);
    fill(kTroughArgb, bar->x + 1, bar->y + 1, bar->w - 2, bar->h - 2);
    fill(kFillArgb, bar->x + 2, bar->y + 2, filled, bar->h - 4);
    fill(kShineArgb, bar->x + 2, bar->y + 3, filled, 2);
}

void Progress::flushProgress() {
    Orm::flush(bar.get());
}
