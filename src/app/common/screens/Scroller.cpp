// SPDX-License-Identifier: MIT
#include "Scroller.h"

#include "AppImage.h"
#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Header.h"
#include "ImageOps.h"
#include "Orm.h"
#include "PaImage.h"
#include "PixelMath.h"
#include "Res.h"

#include <algorithm>
#include <cstddef>

namespace {

// Screen pixels for each pixel of the strip: the moving picture looks smeared.
constexpr int32_t kBlurPx = 16;
constexpr int32_t kStripColumns = 30;  // two screens' worth
constexpr int32_t kDoneQ10 = 1024;
// Duration of a slide. If it were longer, changing the effect would feel slow; if shorter, the
// slide would not be seen.
constexpr int32_t kSlideMs = 180;

// Where a picture stands in the strip, in screen pixels. The visible part is half the strip; with
// this offset it shows the picture in its own place at both ends of a slide.
constexpr int32_t kFirstPx = kStripColumns / 8 * kBlurPx;
constexpr int32_t kSecondPx = (kStripColumns / 3 + kStripColumns / 8) * kBlurPx;

/// A premultiplied colour over a background pixel.
uint32_t over(uint32_t colour, uint32_t background) {
    return colour + scalePixel(background, remainder256(colour));
}

}  // namespace

std::unique_ptr<Bounds> Scroller::bounds;
int32_t Scroller::scrollImgId;
bool Scroller::left;
int32_t Scroller::cFxIndex;
int32_t Scroller::nFxIndex;
int32_t Scroller::numFxs;
int32_t Scroller::slideStartMs;
bool Scroller::sliding;

void Scroller::static_ctor() {
    bounds.reset();
    scrollImgId = Res::Null;
    left = false;
    cFxIndex = 0;
    nFxIndex = 0;
    numFxs = 0;
    slideStartMs = 0;
    sliding = false;
}

void Scroller::static_dtor() {
    bounds.reset();
}

void Scroller::init() {
    numFxs = length(G::fxs);
    coverEffects();
    scrollImgId = Res::addImage(kStripColumns, std::max(bounds->h, 1));
}

/// The strip covers the rows of every effect's picture.
void Scroller::coverEffects() {
    bounds.reset(Bounds::alloc());
    for (int32_t i = 0; i < numFxs; i++) {
        if (Bounds::isValid(G::fxs[i]->image)) {
            Bounds::union_(bounds.get(), G::fxs[i]->image);
        }
    }
    Bounds::setX(bounds.get(), 0);
    Bounds::setWidth(bounds.get(), Bounds::getWidth(G::scrB));
}

void Scroller::copyPicture(int32_t fxIndex, int32_t atPx) {
    PaImage* painter = G::fxs[fxIndex]->image;
    AppImage* picture = Res::getImage(painter->getImage());
    if (picture != nullptr) {
        AppImage* strip = Res::getImage(scrollImgId);
        ImageOps::copyWidth16To1(picture, strip, atPx + painter->getX(),
                                 painter->getY() - bounds->y);
    }
}

void Scroller::initScroll(bool toTheLeft) {
    prepare(toTheLeft, (G::getCurrFx() + (toTheLeft ? numFxs - 1 : 1)) % numFxs);
}

void Scroller::prepare(bool toTheLeft, int32_t next) {
    left = toTheLeft;
    cFxIndex = G::getCurrFx();
    nFxIndex = next;
    Res::getImage(scrollImgId)->set(0U);
    copyPicture(left ? nFxIndex : cFxIndex, kFirstPx);
    copyPicture(left ? cFxIndex : nFxIndex, kSecondPx);
}

void Scroller::paintHeader() {
    Header::paint(true);
    Orm::flush(Header::bounds.get());
}

void Scroller::scroll(bool toTheLeft) {
    initScroll(toTheLeft);
    turn();
}

void Scroller::scrollTo(int32_t index) {
    prepare(index < G::getCurrFx(), index);
    turn();
}

void Scroller::turn() {
    Header::set(true, true, left, !left);
    paintHeader();
    for (const int32_t progress : {0, kDoneQ10 / 2, kDoneQ10}) {
        paint(true, progress);
        Orm::flush(bounds.get());
    }
    G::setCurrFx(nFxIndex);
    Header::set(true, true, false, false);
    paintHeader();
    paint(true);
    Orm::flush(bounds.get());
}

void Scroller::paint(bool withBg) {
    if (withBg) {
        G::piBg->paintOn(G::scr, 0, 0, bounds.get(), nullptr);
    }
    G::fxs[G::getCurrFx()]->image->paintOn(G::scr, 0, 0, G::scrB, nullptr);
}

void Scroller::paint(bool withBg, int32_t progress) {
    if (withBg) {
        G::piBg->paintOn(G::scr, 0, 0, bounds.get(), nullptr);
    }
    const int32_t p = left ? kDoneQ10 - progress : progress;
    const AppImage* strip = Res::getImage(scrollImgId);
    const int32_t firstColumn = ((strip->w / 3) * p >> 10) + strip->w / 8;
    for (int32_t row = 0; row < bounds->h; row++) {
        expandRow(strip, row, firstColumn);
    }
    G::piMicOverlay->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    G::piWheelsOverlay->paintOn(G::scr, 0, 0, G::scrB, nullptr);
}

void Scroller::expandRow(const AppImage* strip, int32_t row, int32_t firstColumn) {
    const AppImage* picture = Res::getImage(G::piBg->getImage());
    const bool pictureFits =
        picture != nullptr && picture->w == G::scr->w && picture->h == G::scr->h;
    const ptrdiff_t start = static_cast<ptrdiff_t>(bounds->y + row) * G::scr->w;
    const uint32_t* below = (pictureFits ? picture->pixels : G::scr->pixels) + start;
    uint32_t* target = G::scr->writableRows(bounds->y + row, 1);
    const uint32_t* columns = strip->pixels + static_cast<ptrdiff_t>(row) * strip->w + firstColumn;
    const int32_t shown = std::min(strip->w / 2, G::scr->w / kBlurPx);
    for (int32_t column = 0; column < shown; column++) {
        for (int32_t k = 0; k < kBlurPx; k++) {
            const uint32_t colour = lerpPixel(columns[column], columns[column + 1],
                                              static_cast<uint32_t>(k * (256 / kBlurPx)));
            target[column * kBlurPx + k] = over(colour, below[column * kBlurPx + k]);
        }
    }
}

void Scroller::startSlide(int32_t nowMs) {
    slideStartMs = nowMs;
    sliding = true;
    Header::set(true, true, left, !left);  // the arrow looks pressed while the pictures move
    paintHeader();
    paint(true, 0);
    Orm::flush(bounds.get());
}

bool Scroller::slide(int32_t nowMs) {
    const int32_t elapsedMs = wrapSub(nowMs, slideStartMs);
    if (!sliding || elapsedMs >= kSlideMs || elapsedMs < 0) {
        if (sliding) {
            sliding = false;
            Header::set(true, true, false, false);
            paintHeader();
            paint(true);
            Orm::flush(bounds.get());
        }
        return false;
    }
    paint(true, elapsedMs * kDoneQ10 / kSlideMs);
    Orm::flush(bounds.get());
    return true;
}
