// SPDX-License-Identifier: MIT
// A script's sound: the microphone plays a file and the speaker writes one, on the virtual clock.
#include "AudioDev.h"
#include "Event.h"
#include "HeadlessHost.h"
#include "Orm.h"
#include "OspBase.h"
#include "Script.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <functional>

using Osp::Base::String;
using Samples = TestSounds::Samples;

namespace {

/// Each "volume up" of the script carries out one step of the test.
class Steps : public HostListener {
public:
    void onTouch(Touch, int32_t, int32_t) override {}

    void onVolumeKey(bool) override {
        ASSERT_LT(next, steps.size());
        steps[next++]();
    }

    void onForeground() override {}

    void onBackground() override {}

    void onScreenOff() override {}

    void onScreenOn() override {}

    void onTerminate() override { ended = true; }

    std::vector<std::function<void()>> steps;
    size_t next = 0;
    bool ended = false;
};

class HeadlessSoundTest : public testing::Test {
protected:
    void run(const std::string& text) {
        std::vector<ScriptCommand> commands;
        ASSERT_EQ("", Script::parse(text, {}, commands));
        HostFolders mapped;
        folders.makeFolder("home");
        mapped.home = folders.path("home");
        host = std::make_unique<HeadlessHost>(mapped, commands, 0);
        Host::install(host.get());
        Orm::paused = false;
        AudioDev::static_ctor();
        for (int32_t i = 0; i < 1000 && !steps.ended; i++) {
            host->pump(steps, -1);
        }
        AudioDev::static_dtor();
        Host::install(nullptr);
        status = host->finish();
    }

    TestFolders folders;
    std::unique_ptr<HeadlessHost> host;
    Steps steps;
    int32_t status = -1;
    String takePath = "/Home/take.wav";
    String endEvent = "EndOfMedia";
};

}  // namespace

TEST_F(HeadlessSoundTest, twentySecondsAreRecordedAndHeardAgain) {
    const Samples voice = TestSounds::noise(330000);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    steps.steps = {
        [this] { EXPECT_TRUE(AudioDev::initRec(&takePath) && AudioDev::startRec()); },
        [] { EXPECT_TRUE(AudioDev::stopRec()); },
    };
    run("mic " + folders.path("voice.wav") + "\nvolume up\nwait 20000\nvolume up\n");
    EXPECT_EQ(0, status) << host->error();
    EXPECT_EQ(TestSounds::wav(TestSounds::part(voice, 0, 320000), 16000),
              folders.read("home/take.wav"));
}

TEST_F(HeadlessSoundTest, theEndComesAtItsExactTimeAndTheSpeakerKeepsWhatWasPlayed) {
    const Samples clip = TestSounds::noise(8004);  // 1000.5 ms
    folders.write("home/take.wav", TestSounds::wav(clip, 8000));
    steps.steps = {
        [this] {
            AudioDev::volumeLevel = 90;
            EXPECT_TRUE(AudioDev::startPlay(&takePath, &endEvent));
        },
        [] { EXPECT_EQ(nullptr, Orm::firstEvent); },
        [] {
            ASSERT_NE(nullptr, Orm::firstEvent);
            EXPECT_EQ(1501, Orm::firstEvent->time);
            delete Orm::firstEvent;
            Orm::firstEvent = nullptr;
        },
    };
    run("speaker " + folders.path("heard.wav") +
        "\nwait 500\nvolume up\nwait 1000\nvolume up\nwait 1\nvolume up\n");
    EXPECT_EQ(0, status) << host->error();
    const Samples heard = TestSounds::samplesOf(folders.read("heard.wav"));
    ASSERT_EQ(8004U, heard.size());
    EXPECT_EQ(clip[8003] * 90 / 100, heard[8003]);
}

TEST_F(HeadlessSoundTest, aMicrophoneFileThatCannotBeReadIsAMistakeInItsLine) {
    run("wait 1\nmic " + folders.path("missing.wav") + "\nwait 1\n");
    EXPECT_EQ(2, status);
    EXPECT_EQ(0U, host->error().find("line 2: ")) << host->error();
}

TEST_F(HeadlessSoundTest, aSpeakerFileThatCannotBeWrittenIsAMistakeInItsLine) {
    run("speaker " + folders.path("missing/heard.wav") + "\n");
    EXPECT_EQ(2, status);
    EXPECT_EQ(0U, host->error().find("line 1: ")) << host->error();
}

TEST_F(HeadlessSoundTest, theScriptCanFailEachOperation) {
    steps.steps = {
        [this] { EXPECT_FALSE(AudioDev::initRec(&takePath)); },
        [this] { EXPECT_TRUE(AudioDev::initRec(&takePath)); },
    };
    run("fail AudioIn.Prepare 1\nvolume up\nvolume up\n");
    EXPECT_EQ(0, status);
}
