// SPDX-License-Identifier: MIT
#include "Save.h"

#include "EffectJob.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "Header.h"
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

namespace {

constexpr const char* kLastName = "rec_99999.wav";

// Attempts when another program takes the chosen name first.
constexpr int32_t kMaxTries = 10;

}  // namespace

int32_t Save::uriStrId;

void Save::static_ctor() {
    uriStrId = Res::addStr("");
}

Save::Save() = default;

Save::~Save() = default;

void Save::onEnter() {
    if (G::getLastPlayedFx() != G::getCurrFx()) {
        // The progress is always shown on the plain picture, whatever screen was shown before.
        Header::set(false, false, false, false);
        Main::paintBgAndFx();
        SkBar::clear();
        EffectJob::enter(this, G::stateOptions);
        return;
    }
    Header::set(false, false, false, false);
    Main::paintBgAndFx();
    Header::paint(false);
    SkBar::clear();
    Orm::flush();
    if (!Murmelo::checkMemCardRemoved()) {
        return;
    }
    if (!copyResult()) {
        MessageAndQuit::enter(MessageAndQuit::kFileError);
        return;
    }
    Main::paintBgAndFx();
    Header::paint(false);
    SkBar::setStr(Res::Null, Str::str_SK_OK, Res::Null);
    SkBar::paint(true);
    Res::replaceStr(uriStrId, new String(*G::uriWavFolder + *name));
    Message::setText(Str::str_LBL_SOUND_SAVED_PHONE, G::fntMedium, uriStrId, G::fntSmall);
    Message::paint();
    Orm::flush();
    dropKeyEvents();
}

/// False if there is no free name, or the copy failed. Another name is tried only if another
/// program has taken the chosen one meanwhile. Only the last name (99999) is used more than once:
/// the file that had it is moved aside.
bool Save::copyResult() {
    String* folder = G::getMrmFolderUri();
    for (int32_t i = 0; i < kMaxTries; i++) {
        name.reset(FileOps::getNextAvailableName(*folder, "rec_", ".wav"));
        if (name == nullptr) {
            return false;
        }
        const String target = *folder + *name;
        bool isTaken = false;
        if (*name == kLastName ? FileOps::copyKeeping(G::resultPath(), target)
                               : FileOps::copyToFree(G::resultPath(), target, isTaken)) {
            savedCount++;
            return true;
        }
        if (!isTaken) {
            return false;
        }
    }
    return false;
}

void Save::onEvent(Event* event) {
    if (SkBar::update(event, true) == Str::str_SK_OK) {
        State::setState(G::stateOptions, true, true);
    }
}
