// SPDX-License-Identifier: MIT
#include "Menu.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "Chrome.h"
#include "Event.h"
#include "G.h"
#include "ImageOps.h"
#include "Main.h"
#include "Orm.h"
#include "PaStretcher.h"
#include "PaTextLabel.h"
#include "Payload.h"
#include "Pooled.h"
#include "Res.h"
#include "SkBar.h"

#include <algorithm>

namespace {

constexpr int32_t kFramePx = 6;     // left and right of the focus bar, to the window's edge
constexpr int32_t kMarginPx = 10;   // above the first entry and below the last
constexpr int32_t kBetweenPx = 12;  // from a row's text to the next one's
constexpr int32_t kOnRecorderPx =
    172;  // top of the window in layOnRecorder(): below every creature's face
constexpr uint32_t kFocusedArgb = 0xA0000000;
constexpr uint32_t kOpaque = 0xFF000000;

}  // namespace

bool Menu::visible;
int32_t Menu::fntId;
uint32_t Menu::bgCol;
int32_t Menu::bgImgId;
Array<PaTextLabel*> Menu::entries;
Array<int32_t> Menu::strIds;
int32_t Menu::focused;
int32_t Menu::rh;
int32_t Menu::y;

void Menu::static_ctor() {
    visible = false;
    fntId = G::fntMedium;
    bgCol = 0;
    bgImgId = Res::Null;
    entries.reset();
    strIds.reset();
    focused = 0;
    rh = 0;
    y = 0;
}

void Menu::static_dtor() {
    freeEntries();
}

void Menu::freeEntries() {
    for (int32_t i = 0; i < length(entries); i++) {
        delete entries[i];
    }
    entries.reset();
    strIds.reset();
}

void Menu::init(const int32_t* ids) {
    freeEntries();
    fntId = G::fntMedium;
    bgCol = 0;
    bgImgId = Res::Null;
    focused = 0;
    const int32_t count = length(ids);
    strIds.reset(newArray<int32_t>(count));
    std::copy(ids, ids + count, strIds.get());
    entries.reset(newArray<PaTextLabel*>(count));
    const BitMapFont* font = Res::getFont(fntId);
    rh = font != nullptr ? font->getLineHeight() : 0;
    y = (Bounds::getHeight(G::scrB) - windowHeightPx()) / 2 + Chrome::kAboveCentrePx;
    for (int32_t i = 0; i < count; i++) {
        entries[i] = new PaTextLabel(ids[i], fntId, Chrome::kWhite);
    }
}

void Menu::layOnRecorder() {
    if (kOnRecorderPx + windowHeightPx() <= SkBar::y1) {
        y = kOnRecorderPx;
    }
}

void Menu::setBgCol(uint32_t argb) {
    bgCol = argb | kOpaque;
}

int32_t Menu::getFocusedStrId() {
    return length(strIds) > 0 ? strIds[focused] : Res::Null;
}

void Menu::setFocusedStrId(int32_t id) {
    const int32_t* begin = strIds;
    const int32_t* end = begin + length(strIds);
    const int32_t* found = std::find(begin, end, id);
    focused = found != end ? static_cast<int32_t>(found - begin) : 0;
}

int32_t Menu::firstTopPx() {
    return y + kMarginPx;
}

int32_t Menu::pitchPx() {
    return rh + kBetweenPx;
}

int32_t Menu::windowHeightPx() {
    return length(strIds) * pitchPx() + 2 * kMarginPx;
}

void Menu::placeWindow() {
    Bounds::set(G::psWndBg, kLeftPx - kFramePx, y, kWidthPx + 2 * kFramePx, windowHeightPx());
}

void Menu::paintBackground() {
    const PooledBounds area(Bounds::alloc(0, 0, Bounds::getWidth(G::scrB), SkBar::y1));
    AppImage* picture = Res::getImage(bgImgId);
    if (picture != nullptr) {
        ImageOps::blend(G::scr, picture, 0, 0, area, nullptr);
    } else if (bgCol != 0) {
        ImageOps::blend(G::scr, bgCol, area->x, area->y, area->w, area->h, area, nullptr);
    } else {
        Main::paintBgAndFx(G::psWndBg);
    }
}

void Menu::paint() {
    visible = true;
    placeWindow();
    paintBackground();
    G::psWndBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    const int32_t firstY = firstTopPx();
    Bounds::set(G::psFocusBar, kLeftPx, firstY + focused * pitchPx(), kWidthPx, pitchPx());
    G::psFocusBar->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    for (int32_t i = 0; i < length(entries); i++) {
        PaTextLabel* entry = entries[i];
        // The language of the text may have changed, and so its width.
        entry->refresh();
        Bounds::setPos(entry, kLeftPx + (kWidthPx - entry->getWidth()) / 2,
                       firstY + i * pitchPx() + kBetweenPx / 2);
        if (i == focused) {
            entry->setColour(kFocusedArgb);
        }
        entry->paintOn(G::scr, 0, 0, G::scrB, nullptr);
        if (i == focused) {
            entry->setColour(Chrome::kWhite);
        }
    }
}

void Menu::moveFocus(int32_t by) {
    const int32_t count = length(strIds);
    if (count == 0) {
        return;  // no entry to move to
    }
    focused = (focused + by + count) % count;
    paint();
    Orm::flush(G::psWndBg);
}

int32_t Menu::update(Event* event) {
    if (event->type == Orm::EV_T_POINTER_RELEASE) {
        return updateByTouch(event);
    }
    if (event->type != Orm::EV_T_KEY_PRESS) {
        return Res::Null;
    }
    if (event->subType == Orm::EV_ST_KEY_UP) {
        moveFocus(-1);
    } else if (event->subType == Orm::EV_ST_KEY_DOWN) {
        moveFocus(1);
    }
    return event->subType == Orm::EV_ST_KEY_MSK ? getFocusedStrId() : Res::Null;
}

/// Index of the entry at that point of the screen, -1 if there is none.
int32_t Menu::rowAt(int32_t px, int32_t py) {
    const int32_t fromFirst = py - firstTopPx();
    const bool inside = px >= kLeftPx && px < kLeftPx + kWidthPx && fromFirst >= 0;
    const int32_t row = inside ? fromFirst / pitchPx() : -1;
    return row < length(strIds) ? row : -1;
}

int32_t Menu::updateByTouch(Event* event) {
    const int32_t px = payloadToX(event->payload);
    const int32_t py = payloadToY(event->payload);
    if (SkBar::strMsk != Res::Null && SkBar::keyAt(px, py) == Orm::EV_ST_KEY_MSK) {
        return getFocusedStrId();
    }
    const int32_t row = rowAt(px, py);
    if (row < 0) {
        return Res::Null;
    }
    moveFocus(row - focused);
    return strIds[row];
}
