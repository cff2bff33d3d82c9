// SPDX-License-Identifier: MIT
// Sound devices are lost while they are in use: the server ends, or the device is removed. Each
// case has a sound server of its own.
#include "ClipEnds.h"
#include "KeyUntil.h"
#include "Program.h"
#include "QuietListener.h"
#include "SdlHost.h"
#include "TestFolders.h"
#include "TestSounds.h"
#include "XScreen.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>

using Samples = TestSounds::Samples;

namespace {

constexpr int64_t kMaxWaitMs = 20000;

int64_t nowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

bool until(const std::function<bool()>& happened, int64_t maxWaitMs = kMaxWaitMs) {
    const int64_t endMs = nowMs() + maxWaitMs;
    while (!happened() && nowMs() < endMs) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return happened();
}

/// A sound server with two microphones, which record silence, and two speakers. While it exists,
/// programs use it.
class OwnServer {
public:
    // The devices that are removed; the others are the defaults, and stay.
    static constexpr const char* kMicrophone = "OneEar";
    static constexpr const char* kSpeaker = "OneVoice";

    /// Makes programs use the server with this socket, whether it runs or not.
    static void name(const TestFolders& folders) {
        setenv("PULSE_SERVER", ("unix:" + folders.path("socket")).c_str(), 1);
    }

    explicit OwnServer(const TestFolders& folders)
        : server({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes",
                  "--use-pid-file=no", "--log-target=file:" + folders.path("server.log"),
                  "--load=module-native-protocol-unix auth-anonymous=1 socket=" +
                      folders.path("socket"),
                  "--load=" + sink("one", kSpeaker), "--load=" + sink("two", "TwoVoice"),
                  "--load=" + source("one", kMicrophone), "--load=" + source("two", "TwoEar")}) {
        name(folders);
        isReady = until([] { return control("set-default-source two_ear >/dev/null 2>&1"); }) &&
                  control("set-default-sink two");
    }

    OwnServer(const OwnServer&) = delete;
    OwnServer& operator=(const OwnServer&) = delete;

    ~OwnServer() { setenv("PULSE_SERVER", before.c_str(), 1); }

    void goAway() { server.send(SIGKILL); }

    /// The server stays and so do the defaults; the speaker goes, and the microphone with it.
    static void removeDevices() {
        control("unload-module $(pactl list short modules | grep sink_name=one | cut -f1)");
    }

    /// Adds them again.
    static void addDevices() {
        control("load-module " + sink("one", kSpeaker) + " >/dev/null");
        control("load-module " + source("one", kMicrophone) + " >/dev/null");
    }

    /// True if a program records from it (how: "source-outputs") or plays on it ("sink-inputs").
    static bool isInUse(const std::string& how) {
        return control("list short " + how + " | grep -q protocol-native");
    }

    bool isReady = false;

private:
    static std::string sink(const std::string& name, const std::string& title) {
        return "module-null-sink sink_name=" + name +
               " rate=16000 channels=1 format=s16le norewinds=1"
               " sink_properties=device.description=" +
               title;
    }

    static std::string source(const std::string& name, const std::string& title) {
        return "module-remap-source source_name=" + name + "_ear master=" + name +
               ".monitor source_properties=device.description=" + title;
    }

    static bool control(const std::string& words) {
        return std::system(("pactl " + words).c_str()) == 0;
    }

    std::string before = std::getenv("PULSE_SERVER");
    Program server;
};

class Ear : public HostMicrophoneListener {
public:
    int32_t samplesWanted() override { return 1600; }

    void onSamples() override {
        calls++;
        Samples samples(1600);
        Host::current().microphone()->take(samples.data(), 1600);
    }

    void onDeviceLost() override {
        losses++;
        Samples samples(16000);
        left = Host::current().microphone()->take(samples.data(), 16000);
    }

    int32_t left = -1;  // samples that could still be taken at the loss
    int32_t calls = 0;
    int32_t losses = 0;
};

/// The two ways in which a device is lost: true: the server ends; false: the device is removed.
class RealLoss : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        server = std::make_unique<OwnServer>(folders);
        ASSERT_TRUE(server->isReady) << folders.read("server.log");
        SdlOptions options;
        if (!GetParam()) {  // a server finds another one for somebody who named none
            options.microphone = OwnServer::kMicrophone;
            options.speaker = OwnServer::kSpeaker;
        }
        host = std::make_unique<SdlHost>(options);
        ASSERT_EQ("", host->open());
        Host::install(host.get());
    }

    void TearDown() override { Host::install(nullptr); }

    bool runUntil(const std::function<bool()>& happened) {
        const int64_t endMs = nowMs() + kMaxWaitMs;
        while (!happened() && nowMs() < endMs) {
            host->pump(ignores, 20);
        }
        return happened();
    }

    void lose() {
        if (GetParam()) {
            server->goAway();
        } else {
            OwnServer::removeDevices();
        }
    }

    TestFolders folders;
    std::unique_ptr<OwnServer> server;
    QuietListener ignores;
    std::unique_ptr<SdlHost> host;
};

class RealLossProgram : public testing::Test {
protected:
    void SetUp() override {
        server = std::make_unique<OwnServer>(folders);
        ASSERT_TRUE(server->isReady) << folders.read("server.log");
        folders.write("config/settings", "lang=0\n");
    }

    /// The command of the program, with standard error in a file.
    std::vector<std::string> command(const std::vector<std::string>& more) const {
        std::vector<std::string> words = {"sh",
                                          "-c",
                                          R"(exec "$@" 2>)" + folders.path("stderr"),
                                          "sh",
                                          MURMELO_PROGRAM_FOLDER "/murmelo",
                                          "--home",
                                          folders.path("home"),
                                          "--config",
                                          folders.path("config")};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    std::string sound(const std::string& name) const {
        return folders.read("home/Murmelo/" + name);
    }

    bool key(const std::string& name) {
        const uint64_t window = screen.windowOf("Murmelo");
        return window != 0 &&
               std::system(
                   ("xdotool windowfocus " + std::to_string(window) + " key " + name).c_str()) == 0;
    }

    /// The canvas, by the program's own key: it has taken every earlier key by then.
    std::string picture() {
        char name[32];
        std::snprintf(name, sizeof name, "screen_%05d.png", pictures++);
        const auto isWhole = [&] { return sound(name).find("IEND") != std::string::npos; };
        for (int32_t i = 0; i < 5 && !isWhole(); i++) {  // the window may not be there yet
            key("F12");
            until(isWhole, kMaxWaitMs);
        }
        return sound(name);
    }

    /// Presses the key until it has an effect.
    bool keyUntil(const std::string& name, const std::function<bool()>& happened) {
        until([this] { return screen.windowOf("Murmelo") != 0; });
        pressUntil([this] { return picture(); }, [&] { key(name); }, happened);
        return until(happened);
    }

    bool isCleanedUp() const {
        const std::string take = sound("MrmLastRec.wav");
        return take.size() > TestSounds::kHeaderBytes &&
               take.substr(24, 4) == TestSounds::little(8000, 4);
    }

    TestFolders folders;
    std::unique_ptr<OwnServer> server;
    XScreen screen;
    int32_t pictures = 0;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(ServerGoesAway, RealLoss, testing::Values(true));
INSTANTIATE_TEST_SUITE_P(DevicesAreRemoved, RealLoss, testing::Values(false));

TEST_P(RealLoss, aMicrophoneThatDiesIsToldOnceAndKeepsWhatItHeard) {
    Ear ear;
    ASSERT_TRUE(host->microphone()->start(ear));
    ASSERT_TRUE(runUntil([&] { return ear.calls > 0; }));
    lose();
    ASSERT_TRUE(runUntil([&] { return ear.losses > 0; }));
    EXPECT_LE(0, ear.left);
    const int32_t calls = ear.calls;
    for (int32_t i = 0; i < 20; i++) {
        host->pump(ignores, 20);
    }
    EXPECT_EQ(calls, ear.calls);
    EXPECT_EQ(1, ear.losses);
    host->microphone()->stop();
}

TEST_P(RealLoss, aSpeakerThatDiesIsToldAtOnceAndTellsNoEnd) {
    ClipEnds end;
    const auto clip = std::make_shared<HostClip>(HostClip{TestSounds::noise(60 * 8000), 8000});
    const int64_t startMs = nowMs();
    ASSERT_TRUE(host->speaker()->play(clip, end));
    for (int32_t i = 0; i < 20; i++) {
        host->pump(ignores, 20);
    }
    EXPECT_EQ(0, end.losses);
    lose();
    ASSERT_TRUE(runUntil([&] { return end.losses > 0; }));
    EXPECT_GT(60000, nowMs() - startMs);  // long before the clip would have ended
    EXPECT_EQ(0, end.ends);
    EXPECT_EQ(1, end.losses);
}

TEST_P(RealLoss, aDeviceThatWasStoppedBeforeItDiedIsNotTold) {
    Ear ear;
    ClipEnds end;
    ASSERT_TRUE(host->microphone()->start(ear));
    const auto clip = std::make_shared<HostClip>(HostClip{TestSounds::noise(8000), 8000});
    ASSERT_TRUE(host->speaker()->play(clip, end));
    host->pump(ignores, 20);
    host->microphone()->stop();
    host->speaker()->stop();
    lose();
    for (int32_t i = 0; i < 50; i++) {
        host->pump(ignores, 20);
    }
    EXPECT_EQ(0, ear.losses);
    EXPECT_EQ(0, end.losses);
}

namespace {

/// A recording that begins without a sound server.
class RealLossSilence : public testing::Test {
protected:
    void SetUp() override {
        OwnServer::name(folders);
        SdlOptions options;
        options.folders.state = folders.path("state");
        host = std::make_unique<SdlHost>(options);
        ASSERT_EQ("", host->open());
        Host::install(host.get());
    }

    void TearDown() override {
        Host::install(nullptr);
        host.reset();
        setenv("PULSE_SERVER", before.c_str(), 1);
    }

    bool runUntil(const std::function<bool()>& happened) {
        const int64_t endMs = nowMs() + 2 * kMaxWaitMs;
        while (!happened() && nowMs() < endMs) {
            host->pump(ignores, 20);
        }
        return happened();
    }

    /// Records for a second. True if the take is kept, which it is if a device has delivered
    /// samples.
    bool isKept(Ear& ear) {
        folders.remove("state");
        host->microphone()->prepare();
        EXPECT_TRUE(host->microphone()->start(ear));
        const int32_t before = ear.calls;
        EXPECT_TRUE(runUntil([&] { return ear.calls >= before + 10; }));
        host->microphone()->stop();
        host->microphone()->release();
        return host->hasLastTake();
    }

    const std::string before = std::getenv("PULSE_SERVER");
    TestFolders folders;
    QuietListener ignores;
    std::unique_ptr<SdlHost> host;
};

}  // namespace

TEST_F(RealLossSilence, aServerThatAppearsIsHeardAndOneThatGoesAndComesBackToo) {
    Ear ear;
    EXPECT_FALSE(isKept(ear));
    for (int32_t times = 0; times < 2; times++) {
        OwnServer server(folders);
        ASSERT_TRUE(server.isReady) << folders.read("server.log");
        OwnServer::name(folders);
        EXPECT_TRUE(isKept(ear)) << times;
        server.goAway();
        folders.remove("socket");
        OwnServer::name(folders);
        EXPECT_FALSE(isKept(ear)) << times;
    }
    EXPECT_EQ(0, ear.losses);
}

TEST_F(RealLossSilence, aServerThatAppearsDuringARecordingIsHeard) {
    Ear ear;
    host->microphone()->prepare();
    testing::internal::CaptureStderr();
    ASSERT_TRUE(host->microphone()->start(ear));
    EXPECT_TRUE(runUntil([&] { return ear.calls >= 10; }));
    const OwnServer server(folders);
    OwnServer::name(folders);
    std::string output;
    EXPECT_TRUE(runUntil([&] {
        output += testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return output.find("The microphone can be heard now.") != std::string::npos;
    }));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(0U, output.find("murmelo: No sound comes from the microphone: ")) << output;
    const int32_t calls = ear.calls;
    EXPECT_TRUE(runUntil([&] { return ear.calls >= calls + 10; }));
    host->microphone()->stop();
    host->microphone()->release();
    EXPECT_TRUE(host->hasLastTake());
}

TEST_F(RealLossProgram, aTakeIsKeptWhenTheServerGoesAwayWhileItIsRecorded) {
    const Program program(command({}));
    ASSERT_TRUE(keyUntil("Return", [] { return OwnServer::isInUse("source-outputs"); }));
    ASSERT_TRUE(until(
        [this] { return sound("MrmLastRec.wav").size() >= TestSounds::kHeaderBytes + 24000; }));
    server->goAway();
    EXPECT_TRUE(until([this] { return isCleanedUp(); }));  // no key was pressed
    EXPECT_EQ("murmelo: the microphone is gone; what it heard until now is kept\n",
              folders.read("stderr"));
}

TEST_F(RealLossProgram, aMicrophoneThatGoesAndComesBackBetweenRecordingsIsTold) {
    const Program program(command({"--microphone", OwnServer::kMicrophone}));
    ASSERT_TRUE(keyUntil("Return", [] { return OwnServer::isInUse("source-outputs"); }));
    ASSERT_TRUE(until(
        [this] { return sound("MrmLastRec.wav").size() >= TestSounds::kHeaderBytes + 24000; }));
    key("Return");
    ASSERT_TRUE(until([this] { return isCleanedUp(); }));
    const std::string gone = "murmelo: “OneEar” is gone.\n";
    for (const std::string& before : {std::string(), gone + "murmelo: “OneEar” is back.\n"}) {
        OwnServer::removeDevices();
        EXPECT_TRUE(until([&] { return folders.read("stderr") == before + gone; }));
        OwnServer::addDevices();
        EXPECT_TRUE(until([&] {
            return folders.read("stderr") == before + gone + "murmelo: “OneEar” is back.\n";
        })) << folders.read("stderr");
    }
}

TEST_F(RealLossProgram, aClipHasEndedWhenTheServerGoesAwayWhileItPlays) {
    folders.write("voice.wav", TestSounds::wav(TestSounds::noise(20 * 16000), 16000));
    const Program program(command({folders.path("voice.wav")}));
    ASSERT_TRUE(keyUntil("Return", [this] { return isCleanedUp(); }));
    ASSERT_TRUE(keyUntil("Return", [] { return OwnServer::isInUse("sink-inputs"); }));
    server->goAway();
    EXPECT_TRUE(until([this] { return !folders.read("stderr").empty(); }));
    EXPECT_EQ("murmelo: the speaker is gone\n", folders.read("stderr"));
    // Only where the effect is chosen a sound can be saved, not while a clip plays.
    EXPECT_TRUE(keyUntil("ctrl+s", [this] { return !sound("rec_00000.wav").empty(); }));
}
