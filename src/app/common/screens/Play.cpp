// SPDX-License-Identifier: MIT
#include "Play.h"

#include "Bounds.h"
#include "EffectJob.h"
#include "Event.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "Orm.h"
#include "PaImage.h"
#include "Payload.h"
#include "Quit.h"
#include "Res.h"
#include "Scroller.h"
#include "SkBar.h"
#include "Str.h"
#include "System.h"

namespace {

constexpr int32_t kSlideFrameMs = 16;  // sixty frames a second; the display shows no more

}  // namespace

void Play::onEnter() {
    SkBar::setStr(Str::str_SK_OPTIONS, Str::str_SK_PLAY, Str::str_SK_QUIT);
    Header::set(true, true, false, false);
    paintAll();
    Orm::flush();
}

void Play::paintAll() {
    Main::paintBg();
    SkBar::paint(true);
    Header::paint(false);
    Scroller::paint(false);
}

void Play::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    const bool press = event->type == Orm::EV_T_KEY_PRESS;
    if (press && event->subType == Orm::EV_ST_KEY_LEFT) {
        turn(true);
    } else if (press && event->subType == Orm::EV_ST_KEY_RIGHT) {
        turn(false);
    } else if (softKey == Str::str_SK_OPTIONS) {
        State::setState(G::stateOptions, true, true);
    } else if (softKey == Str::str_SK_QUIT) {
        Quit::now();
    } else if (softKey == Str::str_SK_PLAY) {
        play();
    } else if (event->type == Orm::EV_T_POINTER_RELEASE) {
        touch(event);
    } else if (event->type == Orm::EV_T_UPDATE) {
        slide();
    }
}

void Play::turn(bool left) {
    beginTurn();
    Scroller::scroll(left);
    endTurn();
}

void Play::show(int32_t index) {
    if (index != G::getCurrFx()) {
        beginTurn();
        Scroller::scrollTo(index);
        endTurn();
    }
}

void Play::beginTurn() {
    dropKeyEvents();
    Orm::unschedule(Orm::EV_T_UPDATE, nullptr);
}

void Play::endTurn() {
    Scroller::startSlide(System::currentTimeMillis());
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kSlideFrameMs);
}

void Play::slide() {
    if (Scroller::slide(System::currentTimeMillis())) {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kSlideFrameMs);
    }
}

void Play::touch(Event* event) {
    const int32_t x = payloadToX(event->payload);
    const int32_t y = payloadToY(event->payload);
    Header::placeArrows();
    if (Bounds::contains(G::piArrowLeftWhite, x, y)) {
        Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LEFT, nullptr, 0);
    } else if (Bounds::contains(G::piArrowRightWhite, x, y)) {
        Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_RIGHT, nullptr, 0);
    }
}

void Play::play() {
    if (G::getLastPlayedFx() == G::getCurrFx()) {
        State::setState(G::statePlaying, true, true);
        return;
    }
    SkBar::setStr(Res::Null, Res::Null, Res::Null);
    Header::set(false, true, false, false);
    paintAll();
    EffectJob::enter(G::statePlaying, this);
}
