// The application's globals: screens, names of its events, subscription lists, folders, the current
// effect.
#pragma once

#include <cstdint>

class AppImage;
class Bounds;
class State;

namespace Osp::Base {
class String;
}

class G {
public:
    using String = Osp::Base::String;

    /// The folder of the user's sounds. The setter keeps a copy.
    static String* getMrmFolderUri() { return mrmFolderUri; }

    /// Deliberate: the copy kept before is not freed; whoever was given it may still hold it.
    static void setMrmFolderUri(String* uri);

    /// Whether that folder is on the memory card. Only once it is set.
    static bool usesMemCard();

    /// Names the working folder and the two temporary files.
    static void setDirTones();

    /// Deletes the two temporary files in the user's folder; nothing if that is not set yet.
    static void deleteRecordedAndProcessed();

    static int32_t getCurrFx() { return currFx; }

    static void setCurrFx(int32_t index) { currFx = index; }

    static int32_t getLastPlayedFx() { return lastPlayedFx; }

    static void setLastPlayedFx(int32_t index) { lastPlayedFx = index; }

    /// Index of the language chosen in an earlier run, -1 if none was (or what is kept is no
    /// language).
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
    static String** eventTypesAllStd;     // shared by the screens, never freed by them
    static String** eventTypesRecording;  // and "TimeOut"
    static String** eventTypesPlaying;    // and "EndOfMedia"

    static AppImage* scr;  // the canvas's picture, not owned
    static Bounds* scrB;   // its size

    static State* stateSplash;
    static State* stateFirstLang;

private:
    static void makeEventTypes();
    static void freeNames();
};
