// SPDX-License-Identifier: MIT
#include "G.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "FileOps.h"
#include "FrameNeeds.h"
#include "Orm.h"
#include "OspApp.h"
#include "OspBase.h"

#include <algorithm>
#include <cassert>

using Osp::Base::String;

namespace {

constexpr int32_t kStdEventTypes = 7;

/// A new counted array of the seven event names to which every screen subscribes, and one more if
/// it is not null.
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
Osp::App::AppRegistry* G::appRegistry;
String** G::eventTypesAllStd;
String** G::eventTypesRecording;
String** G::eventTypesPlaying;
AppImage* G::scr;
Bounds* G::scrB;
Fx** G::fxs;
int32_t G::fntMedium;
int32_t G::fntSmall;
PaImage* G::piBg;
PaImage* G::piMicOverlay;
PaImage* G::piMicLedFlash;
PaImage* G::piWheelsOverlay;
PaImage* G::piButtonsPlay;
PaImage* G::piButtonsStop;
PaImage* G::piButtonsRec;
PaImage* G::piArrowRightBlack;
PaImage* G::piArrowRightWhite;
PaImage* G::piArrowLeftWhite;
PaImage* G::piWheels15;
PaImage* G::piWheels30;
PaImage* G::piWheels45;
PaImage* G::piWheels60;
PaImage* G::piWheels75;
PaStretcher* G::psFocusBar;
PaStretcher* G::psSkBg;
PaStretcher* G::psWndBg;
State* G::stateSplash;
State* G::stateFirstLang;
State* G::stateOptions;
State* G::stateRecord;
State* G::stateRecording;
State* G::statePlay;
State* G::statePlaying;
State* G::stateSave;
Process* G::stateProcess;
WavProc* G::fxMicPostProc;
WavProc* G::fxObjClip;

void G::static_ctor() {
    uriWavFolder = nullptr;
    uriPartWavRecorded = nullptr;
    uriPartWavProcessed = nullptr;
    mrmFolderUri = nullptr;
    currFx = 0;
    lastPlayedFx = -1;
    fxs = nullptr;
    makeEventTypes();
    scr = Orm::getScreen();
    scrB = Bounds::alloc(0, 0, scr->w, scr->h);
    FrameNeeds::installed->makeGlobals();
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
    FrameNeeds::installed->freeGlobals();
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
    assert(mrmFolderUri != nullptr);  // the start names the folder before any screen needs it
    return mrmFolderUri->StartsWith(*FileOps::URI_MEM_CARD_ROOT, 0);
}

void G::setDirTones() {
    replace(uriWavFolder, "/Home/Murmelo/");
    replace(uriPartWavRecorded, "MrmLastRec.wav");
    replace(uriPartWavProcessed, "MrmLastProc.wav");
}

String G::takePath() {
    return *mrmFolderUri + *uriPartWavRecorded;
}

String G::resultPath() {
    return *mrmFolderUri + *uriPartWavProcessed;
}

void G::deleteRecordedAndProcessed() {
    if (mrmFolderUri != nullptr && uriPartWavRecorded != nullptr) {
        FileOps::deleteFile(mrmFolderUri, uriPartWavRecorded);
        FileOps::deleteFile(mrmFolderUri, uriPartWavProcessed);
    }
}

int32_t G::getSavedLang() {
    int lang = -1;
    if (appRegistry->Get("lang", lang) == E_KEY_NOT_FOUND) {
        return -1;
    }
    return lang >= 0 && lang < FrameNeeds::installed->languages() ? lang : -1;
}

void G::saveCurrentLang() {
    const String lang = Osp::Base::Integer::ToString(FrameNeeds::installed->language());
    if (appRegistry->Set("lang", lang) == E_KEY_NOT_FOUND) {
        appRegistry->Add("lang", lang);
    }
}
