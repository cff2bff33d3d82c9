// SPDX-License-Identifier: MIT
// Recording and playing with a real sound server: what is spoken is in the take, what is played
// arrives at the speaker, and no device can block the program.
#include "AudioDev.h"
#include "CountingEar.h"
#include "Event.h"
#include "Orm.h"
#include "OspBase.h"
#include "Program.h"
#include "QuietListener.h"
#include "SdlHost.h"
#include "SoundServer.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sys/resource.h>

using Osp::Base::String;
using Samples = TestSounds::Samples;

namespace {

constexpr int32_t kEarHz = 8000;
constexpr int64_t kMaxWaitMs = Program::kMaxWaitMs;

// A device that blocks the program would do so until its server continues.
constexpr int64_t kHeldUpMs = 10000;

/// Correlation of two parts: 1 if they differ only in loudness, 0 if they have nothing in common.
double correlation(const Samples& a, size_t aFrom, const Samples& b, size_t bFrom, size_t count) {
    double ab = 0;
    double aa = 0;
    double bb = 0;
    for (size_t i = 0; i < count; i++) {
        const double x = a[aFrom + i];
        const double y = b[bFrom + i];
        ab += x * y;
        aa += x * x;
        bb += y * y;
    }
    return aa > 0 && bb > 0 ? ab / std::sqrt(aa * bb) : 0;
}

/// Index in heard at which the sound begins, found by a part of it that occurs only once.
int64_t beginningIn(const Samples& heard, const Samples& sound) {
    constexpr size_t kStretch = 1500;
    const size_t middle = sound.size() / 2;
    double best = 0.5;
    int64_t found = -1;
    for (size_t at = 0; at + kStretch <= heard.size(); at++) {
        const double likeness = correlation(heard, at, sound, middle, kStretch);
        if (likeness > best) {
            best = likeness;
            found = static_cast<int64_t>(at) - static_cast<int64_t>(middle);
        }
    }
    return found;
}

/// The lowest correlation of all seconds, at one fixed distance: a lost or doubled sample lowers it
/// for every later second.
double worstSecond(const Samples& heard, int64_t begin, const Samples& sound, size_t rateHz) {
    double worst = 1;
    for (size_t i = 0; i + rateHz <= sound.size(); i += rateHz) {
        const auto at = static_cast<size_t>(begin) + i;
        const bool there = begin >= 0 && at + rateHz <= heard.size();
        worst = std::min(worst, there ? correlation(heard, at, sound, i, rateHz) : 0);
    }
    return worst;
}

double processorMs() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& time) {
        return 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1000;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

class RealSound : public testing::Test {
protected:
    void SetUp() override {
        folders.makeFolder("home");
        SdlOptions options;
        options.folders.home = folders.path("home");
        host = std::make_unique<SdlHost>(options);
        ASSERT_EQ("", host->open());
        Host::install(host.get());
        Orm::paused = false;
        Orm::firstEvent = nullptr;
        AudioDev::static_ctor();
        AudioDev::volumeLevel = 90;
    }

    void TearDown() override {
        AudioDev::static_dtor();
        delete Orm::firstEvent;
        Orm::firstEvent = nullptr;
        Host::install(nullptr);
        host.reset();
    }

    void run(int64_t ms) {
        runUntil([] { return false; }, ms);
    }

    /// Runs the loop until happened() is true. False if that is not within maxMs.
    bool runUntil(const std::function<bool()>& happened, int64_t maxMs) {
        const int64_t endMs = host->uptimeMs() + maxMs;
        while (!happened() && host->uptimeMs() < endMs) {
            // Other programs do not wake this one, so happened() is called again after a while.
            host->pump(nobody, std::min<int64_t>(endMs - host->uptimeMs(), 20));
        }
        return happened();
    }

    static bool ended() { return Orm::firstEvent != nullptr; }

    /// Plays a sound until it has ended or is stopped; returns what was recorded at the speaker.
    Samples hear(const Samples& sound, int64_t stopAfterMs) {
        folders.write("home/clip.wav", TestSounds::wav(sound, kEarHz));
        Program ear({"parec", "--device=spk.monitor", "--rate=8000", "--channels=1",
                     "--format=s16le", "--raw", "--latency-msec=20"},
                    folders.path("heard.raw"));
        EXPECT_TRUE(runUntil([this] { return heardBytes() > 0; }, kMaxWaitMs));
        startMs = host->uptimeMs();
        EXPECT_TRUE(AudioDev::startPlay(&clipPath, &endEvent));
        startTookMs = host->uptimeMs() - startMs;
        runUntil(ended, stopAfterMs);
        endMs = host->uptimeMs();
        bytesAtEnd = heardBytes();
        AudioDev::stopPlay();
        stopTookMs = host->uptimeMs() - endMs;
        run(800);
        ear.send(SIGKILL);  // it has written all that it heard
        ear.waitForEnd();
        return TestSounds::samplesOf(std::string(TestSounds::kHeaderBytes, '\0') +
                                     folders.read("heard.raw"));
    }

    size_t heardBytes() const {
        std::error_code error;
        const auto size = std::filesystem::file_size(folders.path("heard.raw"), error);
        return error ? 0 : size;
    }

    TestFolders folders;
    std::unique_ptr<SdlHost> host;
    QuietListener nobody;
    String takePath = "/Home/take.wav";
    String clipPath = "/Home/clip.wav";
    String endEvent = "EndOfMedia";
    int64_t startMs = 0;
    int64_t startTookMs = 0;
    int64_t endMs = 0;
    int64_t stopTookMs = 0;
    size_t bytesAtEnd = 0;
};

}  // namespace

TEST_F(RealSound, twentySecondsOfSpeechLoseAndDoubleNothing) {
    const Samples voice = TestSounds::noise(20 * 16000);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    ASSERT_TRUE(AudioDev::initRec(&takePath));
    ASSERT_TRUE(AudioDev::startRec());
    ASSERT_TRUE(runUntil([] { return AudioDev::recordLength > 0; }, kMaxWaitMs));
    const double before = processorMs();
    Program speaker({"paplay", "--device=feed", folders.path("voice.wav")});
    run(21000);
    std::cout << "recording: " << (processorMs() - before) / 21 << " ms of processor a second\n";
    const int64_t stopMs = host->uptimeMs();
    ASSERT_TRUE(AudioDev::stopRec());
    EXPECT_GT(kHeldUpMs, host->uptimeMs() - stopMs);
    const std::string file = folders.read("home/take.wav");
    const Samples take = TestSounds::samplesOf(file);
    EXPECT_EQ(TestSounds::header(static_cast<uint32_t>(take.size()), 16000),
              file.substr(0, TestSounds::kHeaderBytes));
    const int64_t begin = beginningIn(take, voice);
    const double worst = worstSecond(take, begin, voice, 16000);
    std::cout << "recording: worst second correlates to " << worst << "\n";
    EXPECT_LT(0.95, worst);
}

TEST_F(RealSound, aClipArrivesAtTheSpeakerAndEndsWhenItWasHeard) {
    const Samples clip = TestSounds::noise(5 * kEarHz, 9);
    const Samples heard = hear(clip, kMaxWaitMs);
    ASSERT_TRUE(ended());
    const int64_t begin = beginningIn(heard, clip);
    const double worst = worstSecond(heard, begin, clip, kEarHz);
    std::cout << "playing: worst second correlates to " << worst << ", starting took "
              << startTookMs << " ms, ended after " << endMs - startMs << " ms\n";
    EXPECT_LT(0.95, worst);
    EXPECT_LE(5000, endMs - startMs);
    // The last sample was played before the end was reported; the recording itself is some tens of
    // milliseconds late.
    const int64_t lateMs = (begin + static_cast<int64_t>(clip.size())) * 1000 / kEarHz -
                           static_cast<int64_t>(bytesAtEnd / 2) * 1000 / kEarHz;
    std::cout << "playing: the ear had " << lateMs << " ms to go at the end\n";
    EXPECT_GT(100, lateMs);
}

TEST_F(RealSound, aStopIsSilentAtOnceAndHoldsNothingUp) {
    const Samples clip = TestSounds::noise(5 * kEarHz, 9);
    const Samples heard = hear(clip, 1500);
    EXPECT_FALSE(ended());
    EXPECT_GT(kHeldUpMs, stopTookMs);
    const auto isSound = [](int16_t sample) { return sample != 0; };
    const auto last = std::find_if(heard.rbegin(), heard.rend(), isSound);
    const int64_t lastMs = (heard.rend() - last) * 1000 / kEarHz;
    const int64_t lagMs = lastMs - static_cast<int64_t>(bytesAtEnd / 2) * 1000 / kEarHz;
    std::cout << "stopping: heard for another " << lagMs << " ms\n";
    EXPECT_GT(600, lagMs);  // what the device had taken, a quarter of a second, is still heard
}

TEST_F(RealSound, anotherRateIsConverted) {
    Samples sound;
    for (int32_t i = 0; i < 3 * 16000; i++) {  // two tones, both below the ear's limit
        sound.push_back(static_cast<int16_t>(8000 * std::sin(i * 0.1) + 8000 * std::sin(i * 0.37)));
    }
    folders.write("home/take.wav", TestSounds::wav(sound, 16000));
    EXPECT_TRUE(AudioDev::startPlay(&takePath, &endEvent));
    const int64_t beganMs = host->uptimeMs();
    EXPECT_TRUE(runUntil(ended, kMaxWaitMs));
    EXPECT_LE(2900, host->uptimeMs() - beganMs);
}

TEST_F(RealSound, recordingsAndClipsFollowOneAnother) {
    for (int32_t i = 0; i < 3; i++) {
        ASSERT_TRUE(AudioDev::initRec(&takePath)) << i;
        ASSERT_TRUE(AudioDev::startRec()) << i;
        EXPECT_TRUE(runUntil([] { return AudioDev::recordLength > 0; }, kMaxWaitMs)) << i;
        ASSERT_TRUE(AudioDev::stopRec()) << i;
        ASSERT_TRUE(AudioDev::startPlay(&takePath, &endEvent)) << i;
        run(200);
        ASSERT_TRUE(AudioDev::stopPlay()) << i;
    }
}

TEST_F(RealSound, devicesAreChosenByName) {
    SdlAudio audio;
    const std::vector<std::string> microphones = audio.names(SdlAudio::Kind::kMicrophone);
    const std::vector<std::string> speakers = audio.names(SdlAudio::Kind::kSpeaker);
    ASSERT_EQ(1U, microphones.size());
    ASSERT_EQ(2U, speakers.size());
    for (const bool known : {true, false}) {
        std::string told;
        SdlMicrophone microphone(
            audio, known ? microphones[0] : "no such device", [this] { return host->uptimeMs(); },
            [] {}, [&told](const HostMessage& message) { told += message.text("en"); });

        CountingEar listener(1);
        EXPECT_TRUE(microphone.start(listener));
        const auto heard = [&microphone] {
            microphone.deliver();
            return microphone.hasHeard();
        };
        EXPECT_TRUE(runUntil(heard, 20000));
        EXPECT_EQ(known ? "" : "“no such device” is not there. Another microphone is used.", told);
    }
}

TEST_F(RealSound, aStalledServerHoldsNeitherStopNorWindowNorEndUp) {
    ASSERT_TRUE(AudioDev::initRec(&takePath));
    ASSERT_TRUE(AudioDev::startRec());
    ASSERT_TRUE(runUntil([] { return AudioDev::recordLength > 0; }, kMaxWaitMs));
    SoundServer::send(SIGSTOP);
    run(1000);
    const int32_t length = AudioDev::recordLength;
    const int64_t stopMs = host->uptimeMs();
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_GT(kHeldUpMs, host->uptimeMs() - stopMs);
    EXPECT_LE(length, AudioDev::recordLength);
    EXPECT_EQ(TestSounds::header(static_cast<uint32_t>(AudioDev::recordLength / 2), 16000),
              folders.read("home/take.wav").substr(0, TestSounds::kHeaderBytes));
    run(200);
    SoundServer::send(SIGCONT);
    EXPECT_FALSE(host->isStuck());
}

TEST_F(RealSound, aClipWhoseDeviceStallsEndsByTheClock) {
    folders.write("home/clip.wav", TestSounds::wav(TestSounds::noise(2 * kEarHz), kEarHz));
    ASSERT_TRUE(AudioDev::startPlay(&clipPath, &endEvent));
    run(500);
    SoundServer::send(SIGSTOP);
    EXPECT_TRUE(runUntil(ended, kMaxWaitMs));
    SoundServer::send(SIGCONT);
    EXPECT_EQ(4, AudioDev::state);
    EXPECT_TRUE(AudioDev::stopPlay());
}

TEST_F(RealSound, theServersDeathEndsAClipByTheClockAndKeepsATake) {
    folders.write("home/clip.wav", TestSounds::wav(TestSounds::noise(2 * kEarHz), kEarHz));
    ASSERT_TRUE(AudioDev::initRec(&takePath));
    ASSERT_TRUE(AudioDev::startRec());
    ASSERT_TRUE(runUntil([] { return AudioDev::recordLength > 0; }, kMaxWaitMs));
    SoundServer::send(SIGKILL);
    run(500);
    const int64_t stopMs = host->uptimeMs();
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_GT(kHeldUpMs, host->uptimeMs() - stopMs);
    EXPECT_LE(TestSounds::kHeaderBytes + 24000, folders.read("home/take.wav").size());
    // There is no speaker any more: playing is refused, or ends without a sound.
    if (AudioDev::startPlay(&clipPath, &endEvent)) {
        EXPECT_TRUE(runUntil(ended, kMaxWaitMs));
    }
}
