// SPDX-License-Identifier: MIT
// What a computer offers beyond the phone: sound files as the take, the last take again, saving
// and exporting by a key, pictures of the screen.
#pragma once

#include "BackgroundWork.h"
#include "FileDialog.h"
#include "Host.h"
#include "HostMessage.h"
#include "TakeKeeper.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

union SDL_Event;

class SdlDoors {
public:
    using Tell = std::function<void(const HostMessage& message)>;

    /// The word for an effect in the name of an exported file.
    using EffectWord = std::function<std::string(int32_t effect)>;

    /// @param folders  where saved sounds and pictures lie; not owned
    /// @param takes    where takes are kept; not owned
    /// @param wake     wakes the event thread; called on other threads
    SdlDoors(const HostFolders& folders,
             TakeKeeper& takes,
             Tell tell,
             EffectWord effectWord,
             BackgroundWork::Wake wake);

    /// @param offered  null: the program has ended
    void setDoors(HostDoors* offered);

    /// Sets what is called with the path of each picture that takePicture() has written.
    void onPicture(std::function<void(const std::string& path)> told) {
        tellPicture = std::move(told);
    }

    /// Sets what names the window that dialogs belong to, as FileDialog::Frame; asked for on the
    /// event thread.
    void onParent(std::function<std::string()> named) { nameParent = std::move(named); }

    /// The program has deleted its take.
    void takeIsGone();

    /// Reads a sound file, which becomes the take as soon as the program rests in its menu. If a
    /// recording begins before that, the file is dropped and the user is told.
    /// @param nameOrUri  "voice.wav" or "file:///home/ada/voice.wav"
    void offer(const std::string& nameOrUri);

    /// Handles a drop on the window: its first file, or the file whose address is a dropped text,
    /// becomes the take. Of several files the user is told which one is used.
    /// @returns true if a callback was delivered
    bool handle(const SDL_Event& event);

    // The operations that keys and the strip ask for. Each tells the user if it cannot be done, and
    // returns true if a callback was delivered. If the program has ended, they do nothing.

    bool save();

    /// Saves the sound if it is not saved yet, and asks the user where to put a copy of it.
    bool exportSound();

    /// Asks for a sound file. It becomes the take once the user has chosen.
    bool openFile();

    /// Reads a sound file, which then becomes the take; if the menu was not there yet, as soon as
    /// it is.
    bool useFile(const std::string& nameOrUri);

    bool bringBack();

    /// The last take comes back as soon as the program rests in its menu.
    void bringBackLater() { bringsBack = true; }

    /// Another start has asked for the last take: brings it back now, or, before the menu was
    /// shown, as soon as it is.
    void bringBackFromOutside();

    bool forget();

    /// Writes a picture of the screen, as it is now, into the folder of sounds. Does not wait for
    /// the disk.
    void takePicture();

    /// Hands over what is ready: a sound that was read, a file that was chosen. @returns true if a
    /// callback was delivered
    bool deliver();

    /// Tells the real path of a sound that was saved since the last call.
    void tellSaved();

    /// True while a dialog is open, or a file is being read or written.
    bool isBusy() { return backgroundWork.isBusy() || dialogs.isBusy(); }

    /// True while a dialog is open.
    bool isAsking() const { return isDialogOpen; }

    /// Called when the program ends: waits for files that are being read or written, but not for a
    /// dialog. False if something still goes on.
    bool finish();

private:
    struct ReadSound {
        std::vector<int16_t> samples;
        std::string name;     // of the file, without folders
        bool isCut = false;   // the file was longer than a take can be
        HostMessage problem;  // a row without a name: none
    };

    static ReadSound read(const std::string& nameOrUri);
    void startReading(const std::string& nameOrUri, std::function<bool(ReadSound)> done);
    bool take(const ReadSound& sound);
    void startReadingTake(std::function<bool(const std::vector<int16_t>&)> done);
    bool useTake(const std::vector<int16_t>& samples);
    bool opened(const FileDialog::Answer& answer);
    void askForExport();
    bool exportChosen(const FileDialog::Answer& answer, const std::string& saved);
    void startExport(const std::string& saved, const std::string& uri);
    bool drop(const SDL_Event& event);
    std::string words(const char* row) const;
    FileDialog::Frame frameOf(const char* titleRow) const;
    bool isFreeForDialog();

    const HostFolders& folders;
    TakeKeeper& takes;
    Tell tell;
    EffectWord effectWord;
    BackgroundWork backgroundWork;  // reading and writing files
    BackgroundWork dialogs;         // apart: the end does not wait for the user
    HostDoors* doors = nullptr;
    ReadSound offered;                 // no samples: none, or it is still being read
    bool isOffering = false;           // a sound waits for the menu
    std::string offeredName;           // of its file, without folders
    std::vector<int16_t> offeredTake;  // the last take; empty: none
    // Number of the newest reading; the result of an earlier one is dropped.
    int64_t newestReading = 0;
    bool isDialogOpen = false;
    bool bringsBack = false;
    bool exportsNext = false;  // true: the next sound that is saved
    int32_t dropped = 0;       // files of this drop that have come
    std::string droppedName;   // of the first one, without folders
    bool isFromFile = false;   // the take came from a file, and was not brought back
    int32_t savedBefore = 0;
    int32_t savedEffect = -1;  // of the sound that was saved last; -1: none of this take
    std::function<void(const std::string& path)> tellPicture;
    std::function<std::string()> nameParent;
};
