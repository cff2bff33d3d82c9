// SPDX-License-Identifier: MIT
// A microphone without a device gives silence and tries again, on the test's clock.
#include "CountingEar.h"
#include "SdlMicrophone.h"
#include "TestFolders.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <atomic>
#include <cstdlib>

namespace {

/// SDL's driver that reads a file. It has a microphone, which cannot be opened while the file is
/// missing.
class SdlMicrophoneTest : public testing::Test {
protected:
    SdlMicrophoneTest() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILEIN", folders.path("nothing.raw").c_str(), 1);
        SDL_InitSubSystem(SDL_INIT_EVENTS);
        SDL_FlushEvent(SDL_AUDIODEVICEADDED);
    }

    ~SdlMicrophoneTest() override { SDL_QuitSubSystem(SDL_INIT_EVENTS); }

    TestFolders folders;
    std::atomic<int64_t> clockMs{0};
    std::vector<HostMessage> told;
    CountingEar ear{0};
    SdlAudio audio;
    SdlMicrophone microphone{audio, "", [this] { return clockMs.load(); }, [] {},
                             [this](const HostMessage& message) { told.push_back(message); }};
};

}  // namespace

TEST_F(SdlMicrophoneTest, aProgramThatWantsNothingIsNotWokenForSilence) {
    ASSERT_TRUE(microphone.start(ear));
    while (told.empty()) {  // the device cannot be used
        microphone.deliver();
        SDL_Delay(1);
    }
    for (clockMs = 10; clockMs < 500; clockMs = clockMs + 10) {
        EXPECT_FALSE(microphone.deliver());
        EXPECT_EQ(SdlMicrophone::kRetryMs, microphone.dueMs()) << clockMs;
    }
    ear.wanted = 1600;
    EXPECT_TRUE(microphone.deliver());  // the silence of that time is there all the same
    EXPECT_EQ(1, ear.calls);
    microphone.stop();
    int16_t samples[16000] = {};
    EXPECT_EQ(500 * 16, microphone.take(samples, 16000));
}

TEST_F(SdlMicrophoneTest, silenceIsCountedApartFromWhatADeviceGave) {
    ASSERT_TRUE(microphone.start(ear));
    while (told.empty()) {  // the device cannot be used
        microphone.deliver();
        SDL_Delay(1);
    }
    clockMs = 700;
    microphone.deliver();
    LevelMeter::Reading reading;
    ASSERT_TRUE(microphone.readLevel(reading));
    EXPECT_EQ(0, reading.heardSamples);
    EXPECT_EQ(700 * 16, reading.silentSamples);
    microphone.stop();
}

TEST_F(SdlMicrophoneTest, theReasonIsKnownUntilADeviceDelivers) {
    EXPECT_STREQ("", microphone.whyUnheard().row);
    ASSERT_TRUE(microphone.start(ear));
    while (told.empty()) {  // the device cannot be used
        microphone.deliver();
        SDL_Delay(1);
    }
    EXPECT_STREQ("noMicrophone", microphone.whyUnheard().row);
    EXPECT_EQ(told[0].parts, microphone.whyUnheard().parts);
    microphone.stop();
    EXPECT_STREQ("noMicrophone", microphone.whyUnheard().row);  // for the end of the recording
    folders.write("nothing.raw", std::string(64000, 1));
    ASSERT_TRUE(microphone.start(ear));
    while (!microphone.hasHeard()) {
        microphone.deliver();
        SDL_Delay(1);
    }
    EXPECT_STREQ("", microphone.whyUnheard().row);
    microphone.stop();
}

TEST_F(SdlMicrophoneTest, theDeviceThatListensInTheChosenOnesPlaceIsNamed) {
    folders.write("nothing.raw", std::string(64000, 1));
    microphone.choose("No such device");
    EXPECT_EQ("No such device", microphone.deviceName());
    ASSERT_TRUE(microphone.start(ear));
    while (told.empty()) {
        microphone.deliver();
        SDL_Delay(1);
    }
    EXPECT_STREQ("microphoneAway", told[0].row);
    EXPECT_EQ("", microphone.deviceName());  // this driver does not name the system's
    microphone.choose("Another");
    EXPECT_EQ("Another", microphone.deviceName());
    microphone.stop();
}
