// SPDX-License-Identifier: MIT
#include "Message.h"

#include "Bounds.h"
#include "Chrome.h"
#include "G.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Res.h"

namespace {

constexpr int32_t kBoxLeftPx = 10;
constexpr int32_t kBoxTopPx = 70;
constexpr int32_t kBoxWidthPx = 220;
constexpr int32_t kTextWidthPx = 180;
constexpr int32_t kTextHeightPx = 100;  // until the text's own height is known
constexpr int32_t kMarginOfOnePx = 60;
constexpr int32_t kMarginOfTwoPx = 70;
constexpr int32_t kHeadTopPx = 30;
constexpr int32_t kBodyTopPx = 40;  // below the box's top, and the heading
constexpr int32_t kTopCentre = Bounds::kTop | Bounds::kCentre;

}  // namespace

bool Message::visible;
std::unique_ptr<PaTextArea> Message::paTxt;
std::unique_ptr<PaTextArea> Message::paTxt2;

void Message::static_ctor() {
    visible = false;
    paTxt = std::make_unique<PaTextArea>();
    paTxt2 = std::make_unique<PaTextArea>();
}

void Message::static_dtor() {
    paTxt.reset();
    paTxt2.reset();
}

int32_t Message::prepare(PaTextArea* area, int32_t textId, int32_t fontId) {
    area->set(textId, fontId, Chrome::kWhite, Bounds::kCentre, 0, 0, kTextWidthPx, kTextHeightPx);
    const int32_t height = area->getTextHeight();
    Bounds::setHeight(area, height);
    return height;
}

void Message::placeBox(int32_t height) {
    Bounds::set(G::psWndBg, kBoxLeftPx, kBoxTopPx, kBoxWidthPx, height);
    Bounds::setPos(G::psWndBg, Bounds::kCentre, G::scrB, Bounds::kCentre, 0,
                   Chrome::kAboveCentrePx);
}

void Message::setText(int32_t textId, int32_t fontId) {
    const int32_t height = prepare(paTxt.get(), textId, fontId);
    placeBox(height + kMarginOfOnePx);
    Bounds::setPos(paTxt.get(), Bounds::kCentre, G::psWndBg, Bounds::kCentre, 0, 0);
    paTxt2->setText(Res::Null);
}

void Message::setText(int32_t headId, int32_t headFont, int32_t bodyId, int32_t bodyFont) {
    const int32_t headHeight = prepare(paTxt.get(), headId, headFont);
    const int32_t bodyHeight = prepare(paTxt2.get(), bodyId, bodyFont);
    placeBox(headHeight + bodyHeight + kMarginOfTwoPx);
    Bounds::setPos(paTxt.get(), kTopCentre, G::psWndBg, kTopCentre, 0, kHeadTopPx);
    Bounds::setPos(paTxt2.get(), kTopCentre, G::psWndBg, kTopCentre, 0, headHeight + kBodyTopPx);
}

void Message::paint() {
    visible = true;
    G::psWndBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    paTxt->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    if (paTxt2->getText() != Res::Null) {
        paTxt2->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    }
}
