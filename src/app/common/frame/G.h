// SPDX-License-Identifier: MIT
// The application's global objects: screens, names of its events, subscription lists, folders, the
// current effect.
#pragma once

#include <cstdint>

class AppImage;
class Bounds;
class Fx;
class PaImage;
class PaStretcher;
class Process;
class State;
class WavProc;

namespace Osp::App {
class AppRegistry;
}

namespace Osp::Base {
class String;
}

class G {
public:
    using String = Osp::Base::String;

    /// The folder of the user's sounds. The setter keeps a copy.
    static String* getMrmFolderUri() { return mrmFolderUri; }

    /// Deliberate: the old copy is not freed; a caller that got it may still use it.
    static void setMrmFolderUri(String* uri);

    /// True if that folder is on the memory card. Only once it is set.
    static bool usesMemCard();

    /// Names the working folder and the two temporary files.
    static void setDirTones();

    /// Paths of the take and of the effect's result in the user's folder.
    static String takePath();
    static String resultPath();

    /// Deletes the two temporary files in the user's folder; does nothing before the folder is set.
    static void deleteRecordedAndProcessed();

    static int32_t getCurrFx() { return currFx; }

    static void setCurrFx(int32_t index) { currFx = index; }

    static int32_t getLastPlayedFx() { return lastPlayedFx; }

    static void setLastPlayedFx(int32_t index) { lastPlayedFx = index; }

    /// Index of the language chosen in an earlier run; -1 if none was, or if the stored text is not
    /// a language.
    static int32_t getSavedLang();
    static void saveCurrentLang();

    static void static_ctor();
    static void static_dtor();

    static String* uriWavFolder;
    static String* uriPartWavRecorded;
    static String* uriPartWavProcessed;
    static String* mrmFolderUri;
    static int32_t currFx;        // index into the effects
    static int32_t lastPlayedFx;  // the effect whose result is on file; -1: none

    static String* EV_T_END_OF_MEDIA;
    static String* EV_T_TIME_OUT;
    static Osp::App::AppRegistry* appRegistry;  // of the platform, not owned; null outside a run

    static String** eventTypesAllStd;     // shared by the screens, never freed by them
    static String** eventTypesRecording;  // and "TimeOut"
    static String** eventTypesPlaying;    // and "EndOfMedia"

    static AppImage* scr;  // the canvas's picture, not owned
    static Bounds* scrB;   // its size

    static Fx** fxs;  // the effects that the user can choose; counted array, owned

    static int32_t fntMedium;  // headings, menu entries, effect names
    static int32_t fntSmall;   // help, side labels

    // Painters that the screens share; each knows its place on the screen from its picture's name.
    static PaImage* piBg;
    static PaImage* piMicOverlay;
    static PaImage* piMicLedFlash;
    static PaImage* piWheelsOverlay;
    static PaImage* piButtonsPlay;
    static PaImage* piButtonsStop;
    static PaImage* piButtonsRec;
    static PaImage* piArrowRightBlack;
    static PaImage* piArrowRightWhite;
    static PaImage* piArrowLeftWhite;
    static PaImage* piWheels15;
    static PaImage* piWheels30;
    static PaImage* piWheels45;
    static PaImage* piWheels60;
    static PaImage* piWheels75;
    static PaStretcher* psFocusBar;
    static PaStretcher* psSkBg;
    static PaStretcher* psWndBg;

    // Made once, and there for the whole run.
    static State* stateSplash;
    static State* stateFirstLang;
    static State* stateOptions;
    static State* stateRecord;
    static State* stateRecording;
    static State* statePlay;
    static State* statePlaying;
    static State* stateSave;
    /// The current processing job, or the last one; owned, null before the first.
    static Process* stateProcess;

    static WavProc* fxMicPostProc;  // applied to every new take
    static WavProc* fxObjClip;      // null: nothing uses it

private:
    static void makeEventTypes();
    static void freeNames();
};
