// SPDX-License-Identifier: MIT
// The calls of the program to the page around it, one for each thing that only a page can do.
//
// The page calls back through WebHost. An answer carries the ticket of its question; it is dropped
// if that ticket is not the newest.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class WebPage {
public:
    virtual ~WebPage() = default;

    /// Milliseconds since the page began; stands still while the browser asks the user for the
    /// microphone.
    virtual double nowMs() = 0;

    /// Milliseconds of a clock that never stands still.
    virtual double realNowMs() = 0;

    /// Free bytes of the browser's store, as the browser estimates them.
    virtual double freeBytes() = 0;

    /// Asks the user for the microphone. The page then calls WebHost::microphoneAnswered().
    virtual void askMicrophone(int32_t ticket) = 0;

    /// From now until stopMicrophone() the page passes samples to WebHost::heard().
    virtual void startMicrophone() = 0;
    virtual void stopMicrophone() = 0;

    /// Releases the microphone, so that the browser's recording light goes out.
    virtual void releaseMicrophone() = 0;

    /// Plays a WAV file from its beginning. At its end the page calls WebHost::clipEnded(), after
    /// an error clipFailed().
    virtual void playClip(int32_t ticket, const std::vector<uint8_t>& file) = 0;
    virtual void pauseClip() = 0;
    virtual void resumeClip() = 0;
    virtual void stopClip() = 0;

    /// 0 (silent) to 100 (full), linear in amplitude.
    virtual void setVolume(int32_t volume) = 0;

    /// Stores a saved sound. @param path of the file @param effect 0 to 7
    virtual void keepFile(const std::string& path, int32_t effect) = 0;

    /// Stores a raw take (a WAV file of 16 kHz, mono) in place of the one before.
    virtual void keepTake(const std::vector<uint8_t>& file) = 0;

    /// There is a frame to paint: the page calls WebHost::paint() before its next refresh.
    virtual void frameWaits() = 0;

    /// Lets the user choose a sound file. Called while an event of the user is handled: browsers
    /// demand it.
    virtual void pickFile() = 0;

    /// Shows the list of the saved sounds.
    virtual void showSounds() = 0;

    /// Asks the browser for its microphones. The page then calls WebStrip::listMicrophones().
    virtual void listMicrophones() = 0;

    /// Carries out the action of a message of the page. @param number that the page gave with the
    /// message
    virtual void act(int32_t number) = 0;
};
