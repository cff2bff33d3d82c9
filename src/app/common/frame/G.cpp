#include "G.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "FileOps.h"
#include "GEngine.h"
#include "Orm.h"
#include "OspApp.h"
#include "OspBase.h"
#include "State.h"

#include <algorithm>

using Osp::Base::String;

namespace {

constexpr int32_t kStdEventTypes = 7;
constexpr int32_t kLanguages = 5;

/// The seven names that every screen hears, and one more if given.
String** newEventTypes(String* oneMore) {
    String* const names[kStdEventTypes] = {Orm::EV_T_SYS_PAUSE,   Orm::EV_T_SYS_RESUME,
                                           Orm::EV_T_SYS_DISPOSE, Orm::EV_T_KEY_PRESS,
                                           Orm::EV_T_KEY_RELEASE, Orm::EV_T_POINTER_RELEASE,
                                           Orm::EV_T_UPDATE};
    auto** types = newArray<String*>(kStdEventTypes + (oneMore != nullptr ? 1 : 0));
    std::copy(names, names + kStdEventTypes, types);
    if (oneMore != nullptr) {
        types[kStdEventTypes] = oneMore;
    }
    return types;
}

void replace(String*& kept, const char* text) {
    delete kept;
    kept = new String(text);
}

}  // namespace

String* G::uriWavFolder;
String* G::uriPartWavRecorded;
String* G::uriPartWavProcessed;
String* G::mrmFolderUri;
int32_t G::currFx;
int32_t G::lastPlayedFx;
String* G::EV_T_END_OF_MEDIA;
String* G::EV_T_TIME_OUT;
String** G::eventTypesAllStd;
String** G::eventTypesRecording;
String** G::eventTypesPlaying;
AppImage* G::scr;
Bounds* G::scrB;
State* G::stateSplash;
State* G::stateFirstLang;

void G::static_ctor() {
    uriWavFolder = nullptr;
    uriPartWavRecorded = nullptr;
    uriPartWavProcessed = nullptr;
    mrmFolderUri = nullptr;
    currFx = 0;
    lastPlayedFx = -1;
    makeEventTypes();
    scr = Orm::getScreen();
    scrB = Bounds::alloc(0, 0, scr->w, scr->h);
}

void G::makeEventTypes() {
    EV_T_END_OF_MEDIA = new String("EndOfMedia");
    EV_T_TIME_OUT = new String("TimeOut");
    eventTypesAllStd = newEventTypes(nullptr);
    eventTypesRecording = newEventTypes(EV_T_TIME_OUT);
    eventTypesPlaying = newEventTypes(EV_T_END_OF_MEDIA);
}

void G::static_dtor() {
    freeNames();
    delete scrB;
    scrB = nullptr;
    scr = nullptr;
}

void G::freeNames() {
    for (String** name : {&uriWavFolder, &uriPartWavRecorded, &uriPartWavProcessed, &mrmFolderUri,
                          &EV_T_END_OF_MEDIA, &EV_T_TIME_OUT}) {
        delete *name;
        *name = nullptr;
    }
    for (String*** types : {&eventTypesAllStd, &eventTypesRecording, &eventTypesPlaying}) {
        deleteArrFunc(*types);
        *types = nullptr;
    }
}

void G::setMrmFolderUri(String* uri) {
    mrmFolderUri = new String(*uri);
}

bool G::usesMemCard() {
    return mrmFolderUri->StartsWith(*FileOps::URI_MEM_CARD_ROOT, 0);
}

void G::setDirTones() {
    replace(uriWavFolder, "/Home/Murmelo/");
    replace(uriPartWavRecorded, "MrmLastRec.wav");
    replace(uriPartWavProcessed, "MrmLastProc.wav");
}

void G::deleteRecordedAndProcessed() {
    if (mrmFolderUri != nullptr) {
        FileOps::deleteFile(mrmFolderUri, uriPartWavRecorded);
        FileOps::deleteFile(mrmFolderUri, uriPartWavProcessed);
    }
}

int32_t G::getSavedLang() {
    int lang = -1;
    if (GEngine::pAppRegistry->Get("lang", lang) == E_KEY_NOT_FOUND) {
        return -1;
    }
    return lang >= 0 && lang < kLanguages ? lang : -1;
}
