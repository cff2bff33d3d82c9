// SPDX-License-Identifier: MIT
#include "Recording.h"

#include "Arithmetic.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "Main.h"
#include "MessageAndQuit.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "Progress.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"
#include "System.h"
#include "TakeJob.h"
#include "Wheels.h"

#include <algorithm>

using Osp::Base::String;

namespace {

constexpr int32_t kFrameMs = 10;
constexpr int32_t kMarkMs = 7000;
constexpr int32_t kFullQ10 = 1024;
constexpr int32_t kBlinkMask = 31;  // the light shines for 16 frames and is dark for 16
constexpr int32_t kLitFrames = 15;

}  // namespace

void Recording::onEnter() {
    if (!AudioDev::startRec()) {
        MessageAndQuit::enterOnPicture(MessageAndQuit::kNoAudio);
        return;
    }
    Orm::schedEvent(G::EV_T_TIME_OUT, nullptr, nullptr, kTakeMaxMs);
    startMs = System::currentTimeMillis();
    Main::paintBgAndFx();
    Progress::paintInit(Str::str_LBL_RECORDING);
    SkBar::clear();
    Orm::flush();
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kFrameMs);
    frame = 0;
    markMs = startMs;
    G::setLastPlayedFx(-1);
}

void Recording::onExit() {
    Orm::unschedule(G::EV_T_TIME_OUT, nullptr);
    Orm::unschedule(Orm::EV_T_UPDATE, nullptr);
}

void Recording::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    const bool interrupted =
        event->type == Orm::EV_T_SYS_PAUSE || event->type == Orm::EV_T_SYS_DISPOSE;
    if (softKey == Str::str_SK_STOP || event->type == G::EV_T_TIME_OUT || interrupted) {
        finish(!interrupted);
    } else if (event->type == Orm::EV_T_UPDATE) {
        animate();
    }
}

void Recording::animate() {
    if (AudioDev::recordLength > 0) {
        SkBar::setStr(Res::Null, Str::str_SK_STOP, Res::Null);
        SkBar::paint(true);
        Orm::flush(G::psSkBg);
    }
    const int32_t now = System::currentTimeMillis();
    const int32_t elapsedMs = wrapSub(now, startMs);
    // Rounded. A late frame is clamped before it is multiplied: 2,000 seconds would overflow.
    const int32_t shownMs = std::clamp(elapsedMs, -kTakeMaxMs, 2 * kTakeMaxMs);
    Progress::paintProgress(
        std::clamp((shownMs * kFullQ10 + kTakeMaxMs / 2) / kTakeMaxMs, 0, kFullQ10));
    paintLight();
    Wheels::paint(frame);
    G::piButtonsRec->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    Progress::flushProgress();
    Orm::flush(G::piMicLedFlash);
    Orm::flush(G::piWheels15);
    Orm::flush(G::piButtonsRec);
    if (elapsedMs < kTakeMaxMs) {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kFrameMs);
    }
    frame++;
    if (wrapSub(now, markMs) > kMarkMs) {
        markMs = now;
    }
}

void Recording::paintLight() const {
    if ((frame & kBlinkMask) > kLitFrames) {
        Main::paintBg(G::piMicLedFlash, nullptr);
    } else {
        G::piMicLedFlash->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    }
}

void Recording::finish(bool keepTake) {
    Main::paintBgAndFx();
    Progress::paintInit(Str::str_PLEASE_WAIT);
    SkBar::clear();
    Orm::flush();
    if (!AudioDev::stopRec()) {
        MessageAndQuit::enterOnPicture(MessageAndQuit::kNoAudio);
    } else if (keepTake) {
        TakeJob::enter();
    } else {
        giveUpTake();
    }
}

void Recording::giveUpTake() {
    if (!FileOps::makeWay(G::takePath())) {
        MessageAndQuit::enterOnPicture(MessageAndQuit::kFileError);
        return;
    }
    State::setState(G::stateOptions, true, true);
}

String** Recording::getSubscriptions() {
    return G::eventTypesRecording;
}
