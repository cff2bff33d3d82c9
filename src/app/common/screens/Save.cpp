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

// Whoever else puts files into the folder would have to be this quick so many times in a row.
constexpr int32_t kMostTries = 10;

/// A name that was free when it was chosen may be taken by now; only the last one is used again.
bool copyTo(const String& name, const String& source, const String& target) {
    return name == kLastName ? FileOps::copy(source, target) : FileOps::copyToFree(source, target);
}

}  // namespace

int32_t Save::uriStrId;

void Save::static_ctor() {
    uriStrId = Res::addStr("");
}

Save::~Save() {
    delete name;
}

void Save::onEnter() {
    if (G::getLastPlayedFx() != G::getCurrFx()) {
        // Whatever screen it comes from, the progress stands on the plain picture.
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

/// False if there is no free name, or the copy failed.
bool Save::copyResult() {
    String* folder = G::getMrmFolderUri();
    for (int32_t i = 0; i < kMostTries; i++) {
        delete name;
        name = FileOps::getNextAvailableName(*folder, "rec_", ".wav");
        if (name == nullptr) {
            return false;
        }
        const String target = *folder + *name;
        if (copyTo(*name, G::resultPath(), target)) {
            savedCount++;
            return true;
        }
        if (!FileOps::exists(target)) {
            return false;  // it was not for the name
        }
    }
    return false;
}

void Save::onEvent(Event* event) {
    if (SkBar::update(event, true) == Str::str_SK_OK) {
        State::setState(G::stateOptions, true, true);
    }
}

String** Save::getSubscriptions() {
    return G::eventTypesAllStd;
}
