// SPDX-License-Identifier: MIT
#include "MessageAndQuit.h"

#include "AppImage.h"
#include "Bounds.h"
#include "G.h"
#include "ImageOps.h"
#include "Main.h"
#include "Message.h"
#include "Orm.h"
#include "OspBase.h"
#include "Quit.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

#include <utility>

using Osp::Base::String;

namespace {

constexpr uint32_t kDarkArgb = 0x80000000;

}  // namespace

std::unique_ptr<MessageAndQuit> MessageAndQuit::entered;

void MessageAndQuit::static_ctor() {
    entered.reset();
}

void MessageAndQuit::static_dtor() {
    entered.reset();
}

MessageAndQuit::MessageAndQuit(int32_t kind)
    : heading(Res::Null)
    , body(Res::Null) {
    const int32_t willQuit = Str::str_ERROR_APPLICATION_WILL_QUIT_TXT;
    switch (kind) {
    case kHeapLow:
        heading = Str::str_DLG_TITLE_LOW_MEM;
        body = joined(Str::str_ERROR_HEAP_TOO_LOW_TXT, willQuit);
        break;
    case kStorageLow:
        heading = Str::str_DLG_TITLE_LOW_MEM;
        body = joined(Str::str_LOW_MEM_TXT, willQuit);
        break;
    case kFileError:
        body = joined(Str::str_ERROR_FILE_IO_TXT, willQuit);
        break;
    case kNotSupported:
        body = joined(Str::str_ERROR_DEV_NOT_SUPPORTED_TXT, willQuit);
        break;
    case kNoMemCard:
        heading = Str::str_DLG_TITLE_NO_MEM_CARD;
        body = willQuit;
        break;
    case kNoAudio:
        heading = Str::str_ERROR_AUDIO_NO_ACCESS_TXT;
        body = willQuit;
        break;
    default:
        body = Str::str_DLG_TITLE_ERROR;
        break;
    }
}

int32_t MessageAndQuit::joined(int32_t firstId, int32_t secondId) {
    return Res::addStr(new String(*Res::getStr(firstId) + String("\n") + *Res::getStr(secondId)));
}

void MessageAndQuit::enter(int32_t kind) {
    // Kept until the end of this function: the earlier one may be the current screen until the new
    // one is entered.
    const auto earlier = std::exchange(entered, std::make_unique<MessageAndQuit>(kind));
    State::setState(entered.get(), true, true);
}

void MessageAndQuit::enterOnPicture(int32_t kind) {
    Main::paintBgAndFx();
    enter(kind);
}

void MessageAndQuit::onEnter() {
    ImageOps::blend(G::scr, kDarkArgb, 0, 0, G::scr->w, SkBar::y1, G::scrB, nullptr);
    SkBar::setStr(Res::Null, Str::str_SK_OK, Res::Null);
    SkBar::paint(true);
    if (heading != Res::Null) {
        Message::setText(heading, G::fntMedium, body, G::fntSmall);
    } else {
        Message::setText(body, G::fntSmall);
    }
    Message::paint();
    Orm::flush();
}

void MessageAndQuit::onEvent(Event* event) {
    if (SkBar::update(event, true) == Str::str_SK_OK) {
        Quit::now();
    }
}
