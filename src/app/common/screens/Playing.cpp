// SPDX-License-Identifier: MIT
#include "Playing.h"

#include "Arithmetic.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "MessageAndQuit.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "Res.h"
#include "Scroller.h"
#include "SkBar.h"
#include "Str.h"
#include "System.h"
#include "Wheels.h"

using Osp::Base::String;

namespace {

constexpr int32_t kFrameMs = 10;
constexpr int32_t kMarkMs = 7000;

}  // namespace

void Playing::paintScene() {
    Main::paintBg();
    SkBar::clear();
    Header::set(false, true, false, false);
    Header::paint(false);
    Scroller::paint(false);
}

void Playing::onEnter() {
    paintScene();
    Orm::flush();
    String result = G::resultPath();
    if (!FileOps::exists(result)) {
        MessageAndQuit::enter(MessageAndQuit::kFileError);
        return;
    }
    if (!AudioDev::startPlay(&result, G::EV_T_END_OF_MEDIA)) {
        MessageAndQuit::enter(MessageAndQuit::kNoAudio);
        return;
    }
    startMs = System::currentTimeMillis();
    SkBar::setStr(Res::Null, Str::str_SK_STOP, Res::Null);
    SkBar::paint(true);
    Orm::flush(G::psSkBg);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kFrameMs);
}

void Playing::onExit() {
    Orm::unschedule(G::EV_T_END_OF_MEDIA, nullptr);
    Orm::unschedule(Orm::EV_T_UPDATE, nullptr);
}

void Playing::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    const bool interrupted =
        event->type == Orm::EV_T_SYS_PAUSE || event->type == Orm::EV_T_SYS_DISPOSE;
    if (softKey == Str::str_SK_STOP || event->type == G::EV_T_END_OF_MEDIA || interrupted) {
        paintScene();
        Orm::flush();
        AudioDev::stopPlay();
        State::setState(G::statePlay, true, true);
    } else if (event->type == Orm::EV_T_UPDATE) {
        animate();
    }
}

void Playing::animate() {
    Wheels::paint(frame);
    G::piButtonsPlay->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    Orm::flush(G::piMicLedFlash);
    Orm::flush(G::piWheels15);
    Orm::flush(G::piButtonsPlay);
    const int32_t now = System::currentTimeMillis();
    if (wrapSub(now, startMs) > kMarkMs) {
        startMs = now;
    }
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kFrameMs);
    frame++;
}

String** Playing::getSubscriptions() {
    return G::eventTypesPlaying;
}
