// SPDX-License-Identifier: MIT
#include "Record.h"

#include "AudioDev.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "Main.h"
#include "Message.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OspBase.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

using Osp::Base::String;

void Record::onEnter() {
    Main::paintBgAndFx();
    Message::setText(Str::str_PLEASE_WAIT, G::fntMedium);
    Message::paint();
    SkBar::clear();
    Orm::flush();
    if (!Murmelo::checkMemCardRemoved()) {
        return;
    }
    String take = G::takePath();
    if (!FileOps::makeWay(take) || !FileOps::makeWay(G::resultPath())) {
        MessageAndQuit::enterOnPicture(MessageAndQuit::kFileError);
        return;
    }
    if (!Murmelo::checkEnoughSpace()) {
        return;
    }
    if (!AudioDev::initRec(&take)) {
        MessageAndQuit::enterOnPicture(MessageAndQuit::kNoAudio);
        return;
    }
    dropKeyEvents();
    Main::paintBgAndFx();
    Message::setText(Str::str_START_RECORDING, G::fntMedium);
    Message::paint();
    SkBar::setStr(Res::Null, Str::str_SK_RECORD, Str::str_SK_BACK);
    SkBar::paint(true);
    Orm::flush();
}

void Record::giveUpTake() {
    AudioDev::stopRec();
    FileOps::deleteFile(G::takePath());
}

void Record::onEvent(Event* event) {
    const int32_t softKey = SkBar::update(event, true);
    if (softKey == Str::str_SK_RECORD) {
        State::setState(G::stateRecording, true, true);
    } else if (softKey == Str::str_SK_BACK || event->type == Orm::EV_T_SYS_PAUSE) {
        giveUpTake();
        State::setState(G::stateOptions, true, true);
    } else if (event->type == Orm::EV_T_SYS_DISPOSE) {
        giveUpTake();
    }
}
