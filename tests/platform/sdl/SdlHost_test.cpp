// SPDX-License-Identifier: MIT
// The window's back end without a window system and without a sound server, with SDL's drivers for
// that, which write and read files.
#include "ClipEnds.h"
#include "CountingEar.h"
#include "EventRoom.h"
#include "SdlHost.h"
#include "TestBus.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <unistd.h>

using Samples = TestSounds::Samples;

namespace {

using Notes = std::vector<std::string>;

class Heard : public HostListener {
public:
    void onTouch(Touch, int32_t, int32_t) override { notes.emplace_back("touch"); }

    void onVolumeKey(bool) override { notes.emplace_back("volume"); }

    void onForeground() override { notes.emplace_back("foreground"); }

    void onBackground() override { notes.emplace_back("background"); }

    void onScreenOff() override {}

    void onScreenOn() override {}

    void onTerminate() override { notes.emplace_back("terminate"); }

    Notes notes;
};

class SdlHostTest : public testing::Test {
protected:
    SdlHostTest() {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", folders.path("speaker.raw").c_str(), 1);
        setenv("SDL_DISKAUDIOFILEIN", folders.path("voice.raw").c_str(), 1);
    }

    void open(const SdlOptions& options = {}) {
        host = std::make_unique<SdlHost>(options);
        ASSERT_EQ("", host->open());
        run(20);
        heard.notes.clear();
    }

    /// Opens a host that keeps the last take below the folder "state", and hears a tenth of a
    /// second of noise with it. The microphone is stopped, not released.
    void hearWithState() {
        folders.write("voice.raw", TestSounds::bytes(TestSounds::noise(16000)));
        SdlOptions options;
        options.folders.state = folders.path("state");
        open(options);
        CountingEar ear(1600);
        host->microphone()->prepare();
        host->microphone()->start(ear);
        while (ear.calls == 0) {
            host->pump(heard, 1000);
        }
        host->microphone()->stop();
    }

    void run(int64_t ms) {
        const int64_t endMs = host->uptimeMs() + ms;
        while (host->uptimeMs() < endMs) {
            host->pump(heard, endMs - host->uptimeMs());
        }
    }

    static void push(uint32_t type, uint8_t windowEvent = 0) {
        SDL_Event event{};
        event.type = type;
        event.window.event = windowEvent;
        SDL_PushEvent(&event);
    }

    static std::shared_ptr<const HostClip> clipOf(Samples samples) {
        return std::make_shared<HostClip>(HostClip{std::move(samples), 8000});
    }

    TestFolders folders;
    Heard heard;
    std::unique_ptr<SdlHost> host;
};

}  // namespace

TEST_F(SdlHostTest, nothingHappensUntilTheTimeIsUp) {
    open();
    const int64_t startMs = host->uptimeMs();
    EXPECT_FALSE(host->pump(heard, 50));
    EXPECT_LE(50, host->uptimeMs() - startMs);
    EXPECT_FALSE(host->pump(heard, 0));
    EXPECT_TRUE(heard.notes.empty());
}

TEST_F(SdlHostTest, waitingLeavesNothingInTheQueue) {
    open();
    const int32_t before = eventRoom();
    run(300);
    EXPECT_EQ(before, eventRoom());
}

TEST_F(SdlHostTest, oneCallbackAtATime) {
    open();
    push(SDL_APP_WILLENTERBACKGROUND);
    push(SDL_QUIT);
    EXPECT_TRUE(host->pump(heard, -1));
    EXPECT_EQ(1U, heard.notes.size());
    EXPECT_TRUE(host->pump(heard, -1));
    EXPECT_EQ(2U, heard.notes.size());
}

TEST_F(SdlHostTest, signalsEndTheProgram) {
    for (const int signal : {SIGTERM, SIGINT}) {
        open();
        kill(getpid(), signal);
        EXPECT_TRUE(host->pump(heard, -1));
        EXPECT_EQ(Notes{"terminate"}, heard.notes);
        host.reset();
    }
}

TEST_F(SdlHostTest, hidingIsToldOnceAndBeforeShowing) {
    open();
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_HIDDEN);
    run(50);
    EXPECT_TRUE(heard.notes.empty());  // it may be an icon
    run(100);
    EXPECT_EQ(Notes{"background"}, heard.notes);
    push(SDL_APP_WILLENTERBACKGROUND);
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_SHOWN);
    run(50);
    EXPECT_EQ(Notes{"background"}, heard.notes);
    push(SDL_APP_DIDENTERFOREGROUND);
    run(50);
    EXPECT_EQ((Notes{"background", "foreground"}), heard.notes);
}

TEST_F(SdlHostTest, aGlanceAsideIsNotTheBackground) {
    open();
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_FOCUS_LOST);
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_MINIMIZED);
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_HIDDEN);
    push(SDL_WINDOWEVENT, SDL_WINDOWEVENT_SHOWN);
    run(200);
    EXPECT_TRUE(heard.notes.empty());
}

TEST_F(SdlHostTest, theFilesVoiceIsHeardInRealTimeAndWakesTheProgram) {
    const Samples voice = TestSounds::noise(16000);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    SdlOptions options;
    options.hearsFile = true;
    options.microphone = folders.path("voice.wav");
    open(options);
    ASSERT_FALSE(host->isStuck());  // the file is read
    EXPECT_EQ("voice.wav", host->realMicrophone().deviceName());
    CountingEar ear(1600);
    const int64_t startMs = host->uptimeMs();
    EXPECT_TRUE(host->microphone()->start(ear));
    EXPECT_TRUE(host->pump(heard, -1));
    EXPECT_EQ(1, ear.calls);
    EXPECT_LE(100, host->uptimeMs() - startMs);
    Samples take(1600);
    EXPECT_EQ(1600, host->microphone()->take(take.data(), 1600));
    EXPECT_EQ(TestSounds::part(voice, 0, 1600), take);
}

TEST_F(SdlHostTest, aMicrophoneFileThatIsNoSoundIsToldWhenTheWindowStands) {
    folders.write("letter.wav", "Dear Ada");
    SdlOptions options;
    options.hearsFile = true;
    options.microphone = folders.path("letter.wav");
    testing::internal::CaptureStderr();
    open(options);
    ASSERT_FALSE(host->isStuck());  // the file is read
    EXPECT_EQ(
        0U, testing::internal::GetCapturedStderr().find("murmelo: letter.wav is no sound file: "));
    CountingEar ear(1600);
    EXPECT_TRUE(host->microphone()->start(ear));  // hears silence
    EXPECT_TRUE(host->pump(heard, -1));
}

TEST_F(SdlHostTest, theDevicesVoiceArrivesWhole) {
    const Samples voice = TestSounds::noise(16000);
    folders.write("voice.raw", TestSounds::bytes(voice));
    open();
    CountingEar ear(1600);
    EXPECT_TRUE(host->microphone()->isThere());
    EXPECT_TRUE(host->microphone()->start(ear));
    EXPECT_FALSE(host->microphone()->start(ear));
    EXPECT_TRUE(host->pump(heard, -1));
    Samples take(1600);
    EXPECT_EQ(1600, host->microphone()->take(take.data(), 1600));
    EXPECT_EQ(TestSounds::part(voice, 0, 1600), take);
    EXPECT_TRUE(host->pump(heard, -1));
    EXPECT_EQ(2, ear.calls);
    host->microphone()->stop();
    const int32_t rest = host->microphone()->take(take.data(), 1600);
    EXPECT_EQ(TestSounds::part(voice, 1600, static_cast<size_t>(rest)),
              TestSounds::part(take, 0, static_cast<size_t>(rest)));
    EXPECT_LE(1600, rest);
    run(200);
    EXPECT_EQ(2, ear.calls);
}

TEST_F(SdlHostTest, aProgramThatWantsNoSamplesIsNotWoken) {
    folders.write("voice.raw", TestSounds::bytes(TestSounds::noise(16000)));
    open();
    CountingEar ear(1600);
    ear.wanted = 0;
    host->microphone()->start(ear);
    run(300);
    EXPECT_EQ(0, ear.calls);
    host->microphone()->stop();
}

TEST_F(SdlHostTest, aDeviceThatCannotBeOpenedIsTriedOnceASecond) {
    static int32_t found =
        0;  // microphones that SDL has announced: each try begins its sound again
    const auto count = [](void*, SDL_Event* event) {
        found += event->type == SDL_AUDIODEVICEADDED && event->adevice.iscapture != 0 ? 1 : 0;
        return 0;
    };
    open();
    found = 0;
    SDL_AddEventWatch(count, nullptr);
    CountingEar ear(1600);
    testing::internal::CaptureStderr();
    host->microphone()->start(ear);
    const int64_t startMs = host->uptimeMs();
    run(2500);
    host->microphone()->stop();
    const int64_t seconds = (host->uptimeMs() - startMs) / 1000;
    SDL_DelEventWatch(count, nullptr);
    testing::internal::GetCapturedStderr();
    // Once when the sound begins, once at the second try of the first opening, and once for each
    // second's try.
    EXPECT_GE(seconds + 2, found);
    EXPECT_LE(2, found);
}

TEST_F(SdlHostTest, aChoiceOfTheMicrophoneThatCannotBeKeptIsTold) {
    folders.write("config", "a file where the folder should be");
    SdlOptions options;
    options.folders.config = folders.path("config");
    open(options);
    testing::internal::CaptureStderr();
    host->useMicrophone("Headset");
    EXPECT_FALSE(host->isStuck());  // the disk has refused it
    const std::string output = testing::internal::GetCapturedStderr();
    EXPECT_NE(std::string::npos, output.find("is not kept: ")) << output;
    EXPECT_EQ("Headset", host->chosenMicrophone());
}

TEST_F(SdlHostTest, aClipIsPlayedWholeAtItsVolumeAndThenEnds) {
    open();
    ClipEnds end;
    const Samples clip = TestSounds::noise(4000);
    const int64_t startMs = host->uptimeMs();
    host->speaker()->setVolume(50);
    EXPECT_TRUE(host->speaker()->play(clipOf(clip), end));
    EXPECT_FALSE(host->speaker()->play(clipOf(clip), end));
    while (end.ends == 0 && host->uptimeMs() - startMs < 5000) {
        host->pump(heard, 1000);
    }
    EXPECT_EQ(1, end.ends);
    EXPECT_LE(400, host->uptimeMs() - startMs);
    host.reset();
    Samples expected;
    for (const int16_t sample : clip) {
        expected.push_back(static_cast<int16_t>(sample * 50 / 100));
    }
    const std::string played = folders.read("speaker.raw");
    EXPECT_EQ(TestSounds::bytes(expected), played.substr(0, 8000));
}

TEST_F(SdlHostTest, aStoppedClipDoesNotEnd) {
    open();
    ClipEnds end;
    host->speaker()->play(clipOf(TestSounds::noise(4000)), end);
    run(100);
    host->speaker()->stop();
    run(800);
    EXPECT_EQ(0, end.ends);
}

TEST_F(SdlHostTest, theLossOfAnOlderDeviceOfTheSameNumberIsNotThatOfThisOne) {
    folders.write("voice.raw", TestSounds::bytes(TestSounds::noise(16000)));
    open();
    CountingEar ear(1600);
    ear.wanted = 0;
    ClipEnds end;
    host->microphone()->start(ear);
    host->speaker()->play(clipOf(TestSounds::noise(16000)), end);
    for (uint32_t number = 0; number < 10; number++) {
        SDL_Event event{};
        event.type = SDL_AUDIODEVICEREMOVED;
        event.adevice.which = number;
        SDL_PushEvent(&event);
    }
    run(100);
    EXPECT_EQ(0, ear.losses);
    EXPECT_EQ(0, end.losses);
    host->microphone()->stop();
    host->speaker()->stop();
}

TEST_F(SdlHostTest, aPausedClipWaitsAndGoesOn) {
    open();
    ClipEnds end;
    const int64_t startMs = host->uptimeMs();
    host->speaker()->play(clipOf(TestSounds::noise(4000)), end);
    run(100);
    host->speaker()->pause();
    run(1000);
    EXPECT_EQ(0, end.ends);
    host->speaker()->resume();
    while (end.ends == 0 && host->uptimeMs() - startMs < 6000) {
        host->pump(heard, 1000);
    }
    EXPECT_EQ(1, end.ends);
}

TEST_F(SdlHostTest, withoutASoundSystemThereIsSilenceAtTheMicrophonesRateAndClipsAreUnheard) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    SdlOptions options;
    options.folders.state = folders.path("state");
    open(options);
    CountingEar ear(1600);
    ClipEnds end;
    EXPECT_TRUE(host->microphone()->isThere());
    host->microphone()->prepare();
    testing::internal::CaptureStderr();
    EXPECT_TRUE(host->microphone()->start(ear));
    EXPECT_FALSE(host->microphone()->start(ear));
    const int64_t startMs = host->uptimeMs();
    ear.wanted = 16000;
    while (ear.calls == 0 && host->uptimeMs() < startMs + 20000) {
        host->pump(heard, 1000);
    }
    EXPECT_LE(900, host->uptimeMs() - startMs);
    Notes output{testing::internal::GetCapturedStderr()};
    EXPECT_EQ(0U, output[0].find("murmelo: No sound comes from the microphone: ")) << output[0];
    EXPECT_EQ(output[0].find('\n'), output[0].size() - 1) << output[0];  // told once
    std::vector<int16_t> silence(16000, 1);
    EXPECT_EQ(16000, host->microphone()->take(silence.data(), 16000));
    EXPECT_EQ(std::vector<int16_t>(16000, 0), silence);
    host->microphone()->stop();
    host->microphone()->release();
    EXPECT_FALSE(host->hasLastTake());  // nothing was heard: there is no take

    // A clip takes its time, and does not go on while it is paused.
    testing::internal::CaptureStderr();
    const int64_t playMs = host->uptimeMs();
    EXPECT_TRUE(host->speaker()->play(clipOf(Samples(1600, 1)), end));  // 200 ms
    EXPECT_FALSE(host->speaker()->play(clipOf({1, 2, 3}), end));
    EXPECT_EQ("murmelo: No speaker can be used: nothing is heard.\n",
              testing::internal::GetCapturedStderr());
    host->speaker()->pause();
    run(400);
    EXPECT_EQ(0, end.ends);
    host->speaker()->resume();
    while (end.ends == 0 && host->uptimeMs() < playMs + 20000) {
        host->pump(heard, 1000);
    }
    EXPECT_EQ(1, end.ends);
    EXPECT_LE(600, host->uptimeMs() - playMs);
    EXPECT_EQ(0, end.losses);
    EXPECT_TRUE(host->speaker()->play(clipOf({1, 2, 3}), end));
    host->speaker()->stop();
    run(50);
    EXPECT_EQ(1, end.ends);
}

TEST_F(SdlHostTest, whatADeviceHeardIsKeptAsTheLastTake) {
    hearWithState();
    host->microphone()->release();
    ASSERT_FALSE(host->isStuck());  // the disk has it
    EXPECT_LE(TestSounds::kHeaderBytes + 3200, folders.read("state/last-take.wav").size());
}

TEST_F(SdlHostTest, aTakeWithoutACopyIsToldAndComesBack) {
    folders.write("state", "a file where the folder should be");
    hearWithState();
    testing::internal::CaptureStderr();
    host->microphone()->release();
    // The program still has it: the sentence must not say that it is lost.
    EXPECT_EQ(
        "murmelo: There is no spare copy of the recording: the last take cannot be kept in \"" +
            folders.path("state") + "\": Not a directory\n",
        testing::internal::GetCapturedStderr());
    EXPECT_TRUE(host->hasLastTake());
    folders.remove("state");
    host->setDoors(nullptr);
    ASSERT_FALSE(host->isStuck());  // the disk has it
    EXPECT_LE(TestSounds::kHeaderBytes + 3200, folders.read("state/last-take.wav").size());
}

TEST_F(SdlHostTest, whatGoesWrongAfterTheWindowIsShownByTheDesktop) {
    NEEDS_TEST_BUS();
    TestBus bus(folders);
    ASSERT_TRUE(bus.start());
    ASSERT_TRUE(bus.serve("fake_desktop.py", {}));
    folders.write("state", "a file where the folder should be");
    hearWithState();
    host->microphone()->release();
    run(50);
    EXPECT_FALSE(folders.has("calls"));  // the window shows it
    host->setDoors(nullptr);
    ASSERT_FALSE(host->isStuck());
    const std::string call = folders.read("calls");
    EXPECT_EQ(call.find('\n'), call.size() - 1) << call;  // one notice
    EXPECT_NE(std::string::npos,
              call.find("\"There is no spare copy of the recording: Not a directory\""))
        << call;
}

TEST_F(SdlHostTest, ofTwoChoicesTheNewestIsRememberedThoughItIsStoredFirst) {
    MicrophoneMemory memory(folders.path("config"));
    const std::function<Problem()> older = memory.storing("older");
    const std::function<Problem()> newest = memory.storing("newest");
    EXPECT_EQ("", newest());
    EXPECT_EQ("", older());
    EXPECT_EQ("newest", memory.read());
}

TEST_F(SdlHostTest, theChosenMicrophoneIsRememberedByItsName) {
    SdlOptions options;
    options.folders.config = folders.path("config");
    open(options);
    EXPECT_EQ("", host->chosenMicrophone());
    host->useMicrophone("Ada\xE2\x80\x99s headset");
    EXPECT_EQ("Ada\xE2\x80\x99s headset", host->chosenMicrophone());
    ASSERT_FALSE(host->isStuck());  // the disk has it
    host.reset();
    open(options);
    EXPECT_EQ("Ada\xE2\x80\x99s headset", host->chosenMicrophone());
    host.reset();
    options.microphone = "given on the command line";
    open(options);
    EXPECT_EQ("given on the command line", host->chosenMicrophone());
    host->useMicrophone("");
    ASSERT_FALSE(host->isStuck());
    host.reset();
    options.microphone = "";
    open(options);
    EXPECT_EQ("", host->chosenMicrophone());
}

TEST(SdlSpeaker, aChunkIsAQuarterOfASecondOrUpToTwiceAsMuch) {
    for (const int32_t rateHz : {1000, 8000, 11025, 16000, 44100, 48000, 96000, 131072}) {
        const int32_t samples = SdlSpeaker::chunkSamples(rateHz);
        EXPECT_EQ(0, samples & (samples - 1)) << rateHz;
        EXPECT_LE(rateHz, 4 * samples) << rateHz;
        EXPECT_GT(2 * rateHz, 4 * samples) << rateHz;
    }
    EXPECT_EQ(2048, SdlSpeaker::chunkSamples(8000));
    EXPECT_EQ(32768, SdlSpeaker::chunkSamples(192000));  // the highest that fits into 16 bits
}
