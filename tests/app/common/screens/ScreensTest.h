// SPDX-License-Identifier: MIT
// The whole application without its outer loop: all classes initialised, the pictures and fonts as
// shipped, a microphone and a speaker on the clock that the test moves.
#pragma once

#include "OspApp.h"
#include "SoundHost.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class AppImage;
class Murmelo;
class State;

namespace Osp::Base {
class String;
}

class ScreensTest : public testing::Test {
protected:
    using Names = std::vector<std::string>;
    using Pixels = std::vector<uint32_t>;

    /// The last of the phone's action keys; no screen uses it.
    static constexpr int32_t kKeyWithoutMeaning = -9;

    enum SoftKey { kLeft, kMiddle, kRight };

    ScreensTest();
    ~ScreensTest() override;

    /// Names the sound folder and makes it, as the start does.
    void makeSoundFolder();

    /// Deletes the application; every class finaliser runs.
    void end();

    /// Enters a screen and delivers what is due.
    void enter(State* screen);

    /// Delivers what is due now.
    static void tick();

    /// Lets time pass; events and sound that become due are delivered at their time.
    void pass(int64_t ms);

    /// Sets a finger down and lifts it, in canvas pixels.
    static void touch(int32_t x, int32_t y);

    /// A touch in the middle of a soft key.
    static void touch(SoftKey key);

    /// Presses and releases a navigation key. @param code as the canvas's
    static void key(int32_t code);

    /// Delivers an event to the current screen at once.
    static void deliver(Osp::Base::String* type, Osp::Base::String* subType = nullptr);

    /// Class name of the current screen.
    static std::string screen();

    /// The pending events, as "Name/SubName@ms from now".
    Names pending() const;

    /// The three soft-key labels in the current language, "-" for none.
    static Names labels();
    static std::string text(int32_t strId);

    /// The screen's picture.
    static Pixels picture();

    /// The picture's pixels inside a rectangle.
    static Pixels picture(int32_t x, int32_t y, int32_t w, int32_t h);

    /// The text of the fatal screen below its heading; "none" on any other screen.
    static std::string fatalBody();

    /// The heading of the fatal screen, or its body if it has no heading; "none" on any other.
    static std::string fatalText();

    /// The expected picture of a fatal message of that kind over the plain picture, down to the
    /// soft keys.
    static Pixels fatalPicture(int32_t kind);

    /// Writes the take's file, 16 kHz.
    void putTake(const std::vector<int16_t>& samples) const;
    bool hasTake() const;
    bool hasResult() const;

    /// Records the voice given for that long and waits for the choice of the effect.
    void record(const std::vector<int16_t>& voice, int64_t ms);

    // Texts of the fatal screen, in English.
    static constexpr const char* kFileError =
        "An unexpected file read or write error has occured.\nThe application will end.";
    static constexpr const char* kStorageLow =
        "Please free up memory by deleting unnecessary files and closing running applications.\n"
        "The application will end.";
    static constexpr const char* kNoAudio = "Can not get access to the audio device.";

    static constexpr const char* kTake = "home/Murmelo/MrmLastRec.wav";
    static constexpr const char* kResult = "home/Murmelo/MrmLastProc.wav";

    TestFolders folders;
    SoundHost host;
    Osp::App::AppRegistry registry;
    std::unique_ptr<Murmelo> midlet;
};
