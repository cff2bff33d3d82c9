#include "G.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "FileOps.h"
#include "FirstLang.h"
#include "Fx.h"
#include "FxCatalogue.h"
#include "GEngine.h"
#include "Header.h"
#include "Options.h"
#include "Orm.h"
#include "OspApp.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "Play.h"
#include "Playing.h"
#include "Process.h"
#include "Record.h"
#include "Recording.h"
#include "Res.h"
#include "Save.h"
#include "Scroller.h"
#include "SkBar.h"
#include "Splash.h"
#include "State.h"
#include "Str.h"
#include "WpMicPostProc.h"

#include <algorithm>
#include <cassert>

using Osp::Base::String;

namespace {

constexpr int32_t kStdEventTypes = 7;

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

// In the order in which they are made.
PaImage** const kImagePainters[] = {&G::piBg,
                                    &G::piMicOverlay,
                                    &G::piMicLedFlash,
                                    &G::piWheelsOverlay,
                                    &G::piButtonsPlay,
                                    &G::piButtonsStop,
                                    &G::piButtonsRec,
                                    &G::piArrowRightBlack,
                                    &G::piArrowRightWhite,
                                    &G::piArrowLeftWhite,
                                    &G::piWheels15,
                                    &G::piWheels30,
                                    &G::piWheels45,
                                    &G::piWheels60,
                                    &G::piWheels75};
PaStretcher** const kStretchers[] = {&G::psFocusBar, &G::psSkBg, &G::psWndBg};

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
    makePainters();
    fntMedium = Res::addFont("/Res/bmf15.bmf");
    fntSmall = Res::addFont("/Res/bmf13.bmf");
    setPictures();
    makeEffects();
    SkBar::init();
    Header::init();
    Scroller::init();
    makeScreens();
}

void G::makePainters() {
    for (PaImage** painter : kImagePainters) {
        *painter = new PaImage();
    }
    for (PaStretcher** painter : kStretchers) {
        *painter = new PaStretcher();
    }
}

void G::setPictures() {
    piBg->set("/Res/background_0_0_240_320.png", true, true);
    piMicLedFlash->set("/Res/mic_led_0_192_83_86.png", true, false);
    piMicOverlay->set("/Res/mic_overlay_13_151_49_42.png", true, false);
    piWheelsOverlay->set("/Res/wheels_overlay_175_179_57_14.png", true, false);
    piButtonsPlay->set("/Res/play_154_212_35_23.png", true, false);
    piButtonsRec->set("/Res/record_155_213_51_27.png", true, false);
    piButtonsStop->set("/Res/stop_195_226_29_21.png", true, false);
    piArrowLeftWhite->set("/Res/arrow_left_white.png", true, false);
    piArrowRightWhite->set("/Res/arrow_right_white.png", true, false);
    piArrowRightBlack->set("/Res/arrow_right_black.png", true, false);
    piWheels15->set("/Res/wheels_15_176_179_64_32.png", true, false);
    piWheels30->set("/Res/wheels_30_176_179_64_32.png", true, false);
    piWheels45->set("/Res/wheels_45_176_179_64_32.png", true, false);
    piWheels60->set("/Res/wheels_60_176_179_64_32.png", true, false);
    piWheels75->set("/Res/wheels_75_176_179_64_32.png", true, false);
    psFocusBar->set("/Res/focus_bar_x5y5.png", true, false);
    psSkBg->set("/Res/footer_bg_x0y15.png", true, false);
    psWndBg->set("/Res/menu_bg_x16y16.png", true, false);
}

void G::makeEffects() {
    const struct {
        int32_t nameId;
        const char* picture;
    } effects[FxCatalogue::kCount] = {
        {Str::str_FX_NO_EFFECT, "/Res/no_effect_73_45_94_148.png"},
        {Str::str_FX_ROBOT, "/Res/robot_64_43_103_150.png"},
        {Str::str_FX_BACKWARDS, "/Res/backwards_73_48_94_145.png"},
        {Str::str_FX_HIGH_PITCH, "/Res/high_pitch_70_81_97_112.png"},
        {Str::str_FX_LOW_PITCH, "/Res/low_pitch_70_47_114_146.png"},
        {Str::str_FX_FAST_TALKER, "/Res/fast_talker_73_67_94_126.png"},
        {Str::str_FX_DRUNK, "/Res/drunk_73_97_94_96.png"},
        {Str::str_FX_INTONATION_FLIP, "/Res/intonation_73_52_94_141.png"},
    };

    fxs = newArray<Fx*>(FxCatalogue::kCount);
    for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
        String path(effects[i].picture);
        fxs[i] = new Fx(effects[i].nameId, &path, FxCatalogue::newProcessor(i));
    }
}

void G::makeScreens() {
    stateSplash = new Splash();
    stateFirstLang = new FirstLang();
    stateOptions = new Options();
    stateRecord = new Record();
    stateRecording = new Recording();
    statePlay = new Play();
    statePlaying = new Playing();
    stateSave = new Save();
    stateProcess = nullptr;
    fxMicPostProc = new WpMicPostProc();
    fxObjClip = nullptr;
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
    freePainters();
    freeScreens();
    for (int32_t i = 0; i < length(fxs); i++) {
        delete fxs[i];
    }
    deleteArrFunc(fxs);
    fxs = nullptr;
    delete scrB;
    scrB = nullptr;
    scr = nullptr;
}

void G::freePainters() {
    for (PaImage** painter : kImagePainters) {
        delete *painter;
        *painter = nullptr;
    }
    for (PaStretcher** painter : kStretchers) {
        delete *painter;
        *painter = nullptr;
    }
}

void G::freeScreens() {
    for (State** screen : {&stateSplash, &stateFirstLang, &stateOptions, &stateRecord,
                           &stateRecording, &statePlay, &statePlaying, &stateSave}) {
        delete *screen;
        *screen = nullptr;
    }
    delete stateProcess;
    stateProcess = nullptr;
    delete fxMicPostProc;
    fxMicPostProc = nullptr;
    delete fxObjClip;
    fxObjClip = nullptr;
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
    assert(mrmFolderUri != nullptr);  // the start names the folder before any screen asks
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
    if (GEngine::pAppRegistry->Get("lang", lang) == E_KEY_NOT_FOUND) {
        return -1;
    }
    return lang >= 0 && lang < Res::kLanguages ? lang : -1;
}

void G::saveCurrentLang() {
    const String lang = Osp::Base::Integer::ToString(Res::getCurrLangIndex());
    if (GEngine::pAppRegistry->Set("lang", lang) == E_KEY_NOT_FOUND) {
        GEngine::pAppRegistry->Add("lang", lang);
    }
}
