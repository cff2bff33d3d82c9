// SPDX-License-Identifier: MIT
#include "Header.h"

#include "Bounds.h"
#include "Chrome.h"
#include "Fx.h"
#include "G.h"
#include "PaImage.h"
#include "PixProps.h"
#include "Res.h"

namespace {

constexpr int32_t kHeightPx = 26;
constexpr int32_t kHalf256 = 128;

}  // namespace

std::unique_ptr<Bounds> Header::bounds;
bool Header::arrows;
bool Header::fxName;
bool Header::leftP;
bool Header::rightP;
int32_t Header::fntFxName;
uint32_t Header::argb;
int32_t Header::margx;
int32_t Header::margyArrows;
int32_t Header::margyName;
std::unique_ptr<PixProps> Header::halfOp;

void Header::static_ctor() {
    bounds.reset();
    halfOp.reset();
    set(false, false, false, false);
}

void Header::static_dtor() {
    bounds.reset();
    halfOp.reset();
}

void Header::init() {
    bounds.reset(Bounds::alloc(0, 0, Bounds::getWidth(G::scrB), kHeightPx));
    fntFxName = G::fntMedium;
    argb = Chrome::kWhite;
    margx = 8;
    margyArrows = 2;
    margyName = 6;
    halfOp.reset(PixProps::alloc());
    halfOp->opacity = kHalf256;
}

void Header::set(bool showArrows, bool showFxName, bool leftPressed, bool rightPressed) {
    arrows = showArrows;
    fxName = showFxName;
    leftP = leftPressed;
    rightP = rightPressed;
}

void Header::placeArrows() {
    const int32_t y = bounds->y + margyArrows;
    Bounds::setPos(G::piArrowLeftWhite, Bounds::kTop | Bounds::kLeft, bounds->x + margx, y);
    Bounds::setPos(G::piArrowRightWhite, Bounds::kTop | Bounds::kRight,
                   bounds->x + bounds->w - margx, y);
}

void Header::paint(bool withBg) {
    if (withBg) {
        G::piBg->paintOn(G::scr, 0, 0, bounds.get(), nullptr);
    }
    if (arrows) {
        placeArrows();
        G::piArrowLeftWhite->paintOn(G::scr, 0, 0, G::scrB, leftP ? halfOp.get() : nullptr);
        G::piArrowRightWhite->paintOn(G::scr, 0, 0, G::scrB, rightP ? halfOp.get() : nullptr);
    }
    const int32_t nameId = G::fxs[G::getCurrFx()]->name;
    if (fxName && nameId != Res::Null) {
        const int32_t x =
            bounds->x + (bounds->w >> 1) - (Chrome::textWidth(nameId, fntFxName) >> 1);
        Chrome::drawText(nameId, fntFxName, x, bounds->y + margyName, argb);
    }
}
