// SPDX-License-Identifier: MIT
// What a computer offers beyond the phone: sound files as the take, the last take again, saving
// and exporting by a key, pictures of the screen.
#pragma once

#include "Errands.h"
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

    /// The effect's word in the name of an exported file.
    using EffectWord = std::function<std::string(int32_t effect)>;

    /// @param folders  where saved sounds and pictures lie; not owned
    /// @param takes    where takes are kept; not owned
    /// @param wake     rouses the event thread; called on other threads
    SdlDoors(const HostFolders& folders,
             TakeKeeper& takes,
             Tell tell,
             EffectWord effectWord,
             Errands::Wake wake);

    /// @param offered  null: the program has ended
    void setDoors(HostDoors* offered);

    /// What else is to be told of a picture that F12 has written.
    void onPicture(std::function<void(const std::string& path)> told) {
        tellPicture = std::move(told);
    }

    /// The program has deleted its take.
    void takeIsGone();

    /// A sound file that becomes the take as soon as it is read and the program rests in its menu;
    /// not any more once a recording has begun, and that is told.
    /// @param nameOrUri  "voice.wav" or "file:///home/ada/voice.wav"
    void offer(const std::string& nameOrUri);

    /// A file dropped on the window, or a text that is its address: the first one of a drop becomes
    /// the take.
    /// @returns whether a callback was delivered
    bool handle(const SDL_Event& event);

    // What keys and the strip wish. Each tells the user what cannot be done, and returns whether a
    // callback was delivered. Without a program they do nothing.

    bool save();

    /// Saves the sound unless it is saved already, and asks for a name for a copy of it.
    bool exportSound();

    /// Asks for a sound file. It becomes the take once the user has chosen.
    bool openFile();

    /// Reads a sound file, which then becomes the take; if the menu was not there yet, as soon as
    /// it is.
    bool useFile(const std::string& nameOrUri);

    bool bringBack();

    /// The last take comes back as soon as the program rests in its menu.
    void bringBackLater() { bringsBack = true; }

    bool forget();

    /// Writes a picture of the screen into the folder of sounds.
    void takePicture();

    /// Hands over what is ready: a sound that was read, a file that was chosen. @returns whether a
    /// callback was delivered
    bool deliver();

    /// Tells the real path of a sound that was saved since the last call.
    void tellSaved();

    /// True while a dialog is open, or a file is being read or written.
    bool isBusy() { return errands.isBusy(); }

    /// True while a dialog is open.
    bool isAsking() const { return isDialogOpen; }

    /// The program ends: waits for a file that is being written, but not for a user. False if
    /// something still goes on.
    bool finish();

private:
    struct ReadSound {
        std::vector<int16_t> samples;
        std::string name;       // of the file, without folders
        bool isCut = false;     // there was more of it
        HostMessage complaint;  // a row without a name: none
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

    const HostFolders& folders;
    TakeKeeper& takes;
    Tell tell;
    EffectWord effectWord;
    Errands errands;
    HostDoors* doors = nullptr;
    ReadSound offered;                 // no samples: none, or it is still being read
    bool isOffering = false;           // a sound waits for the menu
    std::string offeredName;           // of its file, without folders
    std::vector<int16_t> offeredTake;  // the last take; empty: none
    int64_t newestReading = 0;         // an earlier one that still goes on is not wanted any more
    bool isDialogOpen = false;
    bool bringsBack = false;
    bool exportsNext = false;  // the next saved sound
    bool hasDropped = false;   // the first file of a drop came
    int32_t savedBefore = 0;
    int32_t savedEffect = -1;  // of the sound that was saved last; -1: the take was another
    std::function<void(const std::string& path)> tellPicture;
};
