// SPDX-License-Identifier: MIT
#include "SkBar.h"

#include "BitMapFont.h"
#include "Bounds.h"
#include "Chrome.h"
#include "Event.h"
#include "G.h"
#include "Message.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Payload.h"
#include "Pooled.h"
#include "Res.h"

#include <utility>

using Osp::Base::String;

bool SkBar::visible;
int32_t SkBar::strLsk;
int32_t SkBar::strMsk;
int32_t SkBar::strRsk;
int32_t SkBar::s_strLsk;
int32_t SkBar::s_strMsk;
int32_t SkBar::s_strRsk;
std::unique_ptr<PaTextArea> SkBar::s_paTxt;
std::unique_ptr<PaTextArea> SkBar::s_paTxt2;
std::unique_ptr<PaStretcher> SkBar::s_psWndBg;
bool SkBar::s_messageVisible;
int32_t SkBar::fntSides;
int32_t SkBar::fntCenter;
int32_t SkBar::margx;
int32_t SkBar::margy;
int32_t SkBar::yOfsSides;
int32_t SkBar::yOfsCenter;
uint32_t SkBar::argb;
uint32_t SkBar::argbPressed;
String* SkBar::pressed;
int32_t SkBar::x1;
int32_t SkBar::y1;
int32_t SkBar::x2;
int32_t SkBar::y2;

void SkBar::static_ctor() {
    visible = false;
    strLsk = strMsk = strRsk = Res::Null;
    s_strLsk = s_strMsk = s_strRsk = Res::Null;
    s_paTxt.reset();
    s_paTxt2.reset();
    s_psWndBg.reset();
    s_messageVisible = false;
    pressed = nullptr;
}

void SkBar::static_dtor() {
    // If the question is still shown at the end, these hold the painters of the screen below it.
    s_paTxt.reset();
    s_paTxt2.reset();
    s_psWndBg.reset();
}

void SkBar::init() {
    Bounds::setSize(G::psSkBg, Bounds::getWidth(G::scrB), kHeightPx);
    Bounds::setPos(G::psSkBg, Bounds::kBottom | Bounds::kLeft, 0, Bounds::getHeight(G::scrB) - 1);
    fntSides = G::fntSmall;
    fntCenter = G::fntMedium;
    margx = 8;
    margy = 6;
    yOfsSides = 4;
    yOfsCenter = 2;
    argb = Chrome::kWhite;
    argbPressed = 0x80808080;
    const PooledBounds bar(Bounds::alloc(static_cast<Bounded*>(G::psSkBg)));
    x1 = bar->getLeft();
    y1 = bar->getTop();
    x2 = bar->getRight();
    y2 = bar->getBottom();
}

void SkBar::setStr(int32_t lsk, int32_t msk, int32_t rsk) {
    strLsk = lsk;
    strMsk = msk;
    strRsk = rsk;
    pressed = nullptr;
}

void SkBar::clear() {
    setStr(Res::Null, Res::Null, Res::Null);
    paint(true);
}

void SkBar::save() {
    if (s_psWndBg != nullptr) {
        return;
    }
    s_strLsk = strLsk;
    s_strMsk = strMsk;
    s_strRsk = strRsk;
    s_paTxt = std::exchange(Message::paTxt, std::make_unique<PaTextArea>());
    s_paTxt2 = std::exchange(Message::paTxt2, std::make_unique<PaTextArea>());
    s_psWndBg.reset(std::exchange(G::psWndBg, new PaStretcher()));
    String window("/Res/menu_bg_x16y16.png");
    G::psWndBg->set(&window, true, false);
    s_messageVisible = std::exchange(Message::visible, false);  // the question covers the message
}

void SkBar::restore() {
    if (s_psWndBg == nullptr) {
        return;
    }
    Message::paTxt = std::move(s_paTxt);
    Message::paTxt2 = std::move(s_paTxt2);
    delete std::exchange(G::psWndBg, s_psWndBg.release());
    Message::visible = s_messageVisible;
    setStr(s_strLsk, s_strMsk, s_strRsk);
}

void SkBar::paint(bool withBg) {
    visible = true;
    if (withBg) {
        G::piBg->paintOn(G::scr, 0, 0, G::psSkBg, nullptr);
    }
    G::psSkBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    const int32_t ySides = y1 + margy + yOfsSides;
    if (strLsk != Res::Null) {
        const uint32_t colour = pressed == Orm::EV_ST_KEY_LSK ? argbPressed : argb;
        Chrome::drawText(strLsk, fntSides, x1 + margx, ySides, colour);
    }
    if (strRsk != Res::Null) {
        const uint32_t colour = pressed == Orm::EV_ST_KEY_RSK ? argbPressed : argb;
        Chrome::drawText(strRsk, fntSides, x2 - margx - Chrome::textWidth(strRsk, fntSides), ySides,
                         colour);
    }
    if (strMsk != Res::Null) {
        const uint32_t colour = pressed == Orm::EV_ST_KEY_MSK ? argbPressed : argb;
        const int32_t x = ((x1 + x2) >> 1) - (Chrome::textWidth(strMsk, fntCenter) >> 1);
        Chrome::drawText(strMsk, fntCenter, x, y1 + margy + yOfsCenter, colour);
    }
}

int32_t SkBar::update(Event* event, bool repaint) {
    const int32_t chosen = choose(event);
    if (repaint) {
        paint(true);
        Orm::flush(G::psSkBg);
    }
    return chosen;
}

int32_t SkBar::choose(Event* event) {
    if (event->type == Orm::EV_T_KEY_PRESS) {
        return choose(event->subType);
    }
    if (event->type == Orm::EV_T_POINTER_RELEASE) {
        return choose(keyAt(payloadToX(event->payload), payloadToY(event->payload)));
    }
    const bool softKey = event->subType == Orm::EV_ST_KEY_LSK ||
                         event->subType == Orm::EV_ST_KEY_MSK ||
                         event->subType == Orm::EV_ST_KEY_RSK;
    if (event->type == Orm::EV_T_KEY_RELEASE && softKey) {
        pressed = nullptr;
    }
    return Res::Null;
}

int32_t SkBar::choose(String* key) {
    const int32_t label = labelOf(key);
    if (label != Res::Null) {
        pressed = key;
    }
    return label;
}

int32_t SkBar::labelOf(const String* key) {
    if (key == Orm::EV_ST_KEY_LSK) {
        return strLsk;
    }
    if (key == Orm::EV_ST_KEY_MSK) {
        return strMsk;
    }
    return key == Orm::EV_ST_KEY_RSK ? strRsk : Res::Null;
}

int32_t SkBar::thirdPx() {
    return (x2 - x1 + 1) / 3;
}

String* SkBar::keyAt(int32_t x, int32_t y) {
    int32_t left = x1;
    for (String* key : {Orm::EV_ST_KEY_LSK, Orm::EV_ST_KEY_MSK, Orm::EV_ST_KEY_RSK}) {
        if (x >= left && x < left + thirdPx() && y >= y1 && y <= y2) {
            return key;
        }
        left += thirdPx();
    }
    return nullptr;
}

int32_t SkBar::middleXOf(const String* key) {
    const int32_t column = key == Orm::EV_ST_KEY_LSK ? 0 : (key == Orm::EV_ST_KEY_MSK ? 1 : 2);
    return x1 + column * thirdPx() + thirdPx() / 2;
}
