// SPDX-License-Identifier: MIT
// The phone in a window: the back end that uses SDL's events, pictures and sound.
//
// The event thread sleeps in SDL until an event, a signal, a sound device or a due time wakes it.
// The picture is read at most once for each refresh of the display.
#pragma once

#include "BackgroundWork.h"
#include "CopyingMicrophone.h"
#include "EventWait.h"
#include "FileMicrophone.h"
#include "Host.h"
#include "KeyWalk.h"
#include "LostMicrophone.h"
#include "MicrophoneList.h"
#include "MicrophoneMemory.h"
#include "OtherStarts.h"
#include "Problem.h"
#include "SdlAudio.h"
#include "SdlAway.h"
#include "SdlDoors.h"
#include "SdlInput.h"
#include "SdlKeyActions.h"
#include "SdlMicrophone.h"
#include "SdlPictures.h"
#include "SdlSpeaker.h"
#include "SdlStrip.h"
#include "SdlWindow.h"
#include "SdlWishes.h"
#include "SignalWatch.h"
#include "Speech.h"
#include "TakeKeeper.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct SdlOptions {
    HostFolders folders;
    std::string microphone;  // name of a device; empty: the system's default
    std::string speaker;     // name of a device; empty: the system's default
    bool hearsFile = false;  // the microphone is a sound file, not a device
    std::string take;        // a sound file that becomes the take; empty: none
    bool last = false;       // begin with the last take of an earlier run
    SdlDoors::EffectWord effectWord;
    bool silent = false;
    bool fullScreen = false;
    bool speaks = false;
};

class SdlHost : public Host, private SdlPlaces {
public:
    explicit SdlHost(SdlOptions options);
    SdlHost(const SdlHost&) = delete;
    SdlHost& operator=(const SdlHost&) = delete;
    ~SdlHost() override;

    /// Opens the window.
    /// @returns why it failed
    Problem open();

    /// Waits a moment for work on other threads. True if it does not end: a sound device is stuck,
    /// a disk does not respond, or a dialog is open. Then the process must end at once, without
    /// shutting down SDL.
    bool isStuck();

    int64_t uptimeMs() override;
    int64_t ticksMs() override;

    void yielded() override {}

    const HostFolders& folders() override { return options.folders; }

    bool isSilent() override { return options.silent; }

    int64_t freePhoneBytes() override;
    bool pump(HostListener& listener, int64_t timeoutMs) override;
    void frameShown(HostFrame* newest) override;
    HostMicrophone* microphone() override;

    HostSpeaker* speaker() override { return &voice; }

    void setDoors(HostDoors* offered) override;

    /// Writes the sentence to standard error, and shows the message in the strip. Once the program
    /// has ended there is no window any more: then the desktop shows it as a notice.
    void tell(const HostMessage& message, const std::string& sentence) override;

    /// The same; the sentence is the message in English.
    void tell(const HostMessage& message);

    /// The operations on files, which keys call too.
    SdlDoors& files() { return extraDoors; }

    /// The microphone in use: a device, or the file that replaces it.
    HostMicrophone& realMicrophone();

    /// Name of the chosen microphone; empty: the system's default.
    const std::string& chosenMicrophone() const { return ears.chosen(); }

    /// Uses this microphone from the next recording on, and stores it for later starts.
    /// @param name  empty: the system's default
    void useMicrophone(const std::string& name);

    /// True if there is a take to bring back.
    bool hasLastTake() const { return takes.isThere(); }

    /// One line on standard error, also before there is a host.
    static void print(const std::string& sentence);

    /// The number of pictures that were shown.
    int64_t presented() const { return pictures.presented(); }

private:
    SdlWishes::Microphones listOfMicrophones();
    void recorded(const std::vector<int16_t>& take);
    void syncLater(std::function<Problem()> sync);
    void readVoice();
    void tellOfMicrophone(const HostMessage& message);
    void notify(const HostMessage& message);
    void tellSpeechFailure();
    bool deliverSound();
    void deliverListing();
    bool deliverEvent(HostListener& listener);
    bool deliverSignals(HostListener& listener);
    bool handle(const union SDL_Event& event, HostListener& listener);
    bool handleKey(const union SDL_Event& event, HostListener& listener);
    bool handleTouch(const union SDL_Event& event, HostListener& listener);
    void handleWindow(const union SDL_Event& event);
    void point(const struct SDL_MouseMotionEvent& motion);
    void sleep(int64_t untilMs);
    int64_t nextDueMs();
    int64_t nowUs() const;

    void wake() { events.wake(); }

    DisplayPoint fromShares(double xShare, double yShare, WindowPart part) const override;
    DisplayPoint fromMouse(int32_t mouseX, int32_t mouseY, WindowPart part) const override;

    SdlOptions options;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();

    std::atomic<bool> endAsked{false};   // a signal asked for the end
    std::atomic<bool> stopAsked{false};  // a signal asked to suspend the program
    EventWait events;
    SignalWatch signals;  // before all members that start threads, which inherit its signal mask

    MicrophoneMemory microphoneMemory;
    SdlAudio audio;
    SdlMicrophone ears;
    FileMicrophone fileEars;
    BackgroundWork backgroundWork;
    TakeKeeper takes;
    CopyingMicrophone copyingEars;
    LostMicrophone lostMicrophone;
    SdlSpeaker voice;
    SdlWindow window;
    SdlInput input;
    SdlStrip strip;

    SdlDoors extraDoors;
    KeyWalk walk;
    SdlKeyActions keyActions{window, extraDoors, strip, walk};
    SdlWishes wishes;
    MicrophoneList microphones;
    Speech speech;
    SdlPictures pictures;
    SdlAway away{window};
    HostDoors* doors = nullptr;
    bool hasEnded = false;  // the program has ended, and the window is gone
    OtherStarts otherStarts;
};
