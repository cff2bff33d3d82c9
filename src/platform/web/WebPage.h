// SPDX-License-Identifier: MIT
// The calls of the program to the page around it, one for each thing that only a page can do.
//
// The page calls back through WebHost. Late answers carry the ticket of their question; an answer
// whose ticket is not the newest is dropped.
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

    /// The same clock, never standing still.
    virtual double realNowMs() = 0;

    /// Free bytes of the browser's store, as far as it tells.
    virtual double freeBytes() = 0;

    /// Asks the user for the microphone: WebHost::microphoneGranted() or microphoneRefused().
    virtual void askMicrophone(int32_t ticket) = 0;

    /// Sends what the microphone hears, until stopMicrophone().
    virtual void startMicrophone() = 0;
    virtual void stopMicrophone() = 0;

    /// Releases the microphone, so that the browser's recording light goes out.
    virtual void releaseMicrophone() = 0;

    /// Plays a WAV file from its beginning: WebHost::clipEnded() or clipFailed().
    virtual void playClip(int32_t ticket, const std::vector<uint8_t>& file) = 0;
    virtual void pauseClip() = 0;
    virtual void resumeClip() = 0;
    virtual void stopClip() = 0;

    /// 0 to 100, in proportion.
    virtual void setVolume(int32_t volume) = 0;

    /// Stores a file of the user's.
    virtual void keepFile(const std::string& path, int32_t effect) = 0;

    /// Stores a raw take (a WAV file of 16 kHz, mono) in the place of the one before.
    virtual void keepTake(const std::vector<uint8_t>& file) = 0;

    /// There is a frame to paint.
    virtual void frameWaits() = 0;

    /// Lets the user choose a sound file. Called within the user's event.
    virtual void pickFile() = 0;

    /// Shows the list of the saved sounds.
    virtual void showSounds() = 0;

    /// Asks the browser for its microphones: WebHost::listMicrophones().
    virtual void listMicrophones() = 0;

    /// Does what belongs to the message that the page has told with that number.
    virtual void act(int32_t number) = 0;
};
