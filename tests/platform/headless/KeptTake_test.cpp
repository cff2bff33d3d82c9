// SPDX-License-Identifier: MIT
// No take is lost: whatever the program does with it, it can be brought back and gives the same
// files, byte for byte.
#include "FullDisk.h"
#include "HeadlessHost.h"
#include "OspProgram.h"
#include "ScreenTable.h"
#include "Script.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "TestSounds.h"
#include "WpRobot.h"

#include <gtest/gtest.h>

using Samples = TestSounds::Samples;

namespace {

constexpr int32_t kEffects = 8;

/// A take, and when its recording is stopped.
struct Recording {
    Samples voice;
    int32_t stopAfterMs;
};

class KeptTakeTest : public testing::Test {
protected:
    KeptTakeTest() {
        folders.makeFolder("home");
        folders.write("config/settings", "lang=0\n");
    }

    /// Runs the program once. Whenever a job ends, stores its result.
    void run(const std::string& script) {
        TestHost shipped;
        shipped.mapShipped();
        HostFolders mapped = shipped.mappedFolders;
        mapped.home = folders.path("home");
        mapped.config = folders.path("config");
        mapped.state = folders.path("state");
        std::vector<std::string> screens;
        int32_t count = 0;
        const ScreenTable::Row* rows = ScreenTable::rows(count);
        for (int32_t i = 0; i < count; i++) {
            screens.emplace_back(rows[i].name);
        }
        std::vector<ScriptCommand> commands;
        ASSERT_EQ("", Script::parse("until Options\n" + script, screens, commands));
        HeadlessHost host(mapped, commands, 0);
        Host::install(&host);
        OspProgram program;
        ASSERT_TRUE(program.begin());
        WpRobot::fixSeed(1);  // its noise follows the clock, and would differ in any two runs
        std::string before;
        while (program.step()) {
            const std::string screen = host.screenName();
            if (screen != before && screen == "Play") {
                takes.push_back(folders.read("home/Murmelo/MrmLastRec.wav"));
            }
            if (screen != before && screen == "Playing") {
                results.push_back(folders.read("home/Murmelo/MrmLastProc.wav"));
            }
            before = screen;
        }
        program.end();
        Host::install(nullptr);
        EXPECT_EQ(0, host.finish()) << host.error();
    }

    std::string record(const Recording& recording) const {
        folders.write("voice.wav", TestSounds::wav(recording.voice, 16000));
        return "mic " + folders.path("voice.wav") + "\ntap 240 554\nkey middle\nwait " +
               std::to_string(recording.stopAfterMs) + "\n";
    }

    /// The commands that play all eight effects and go back to the first.
    static std::string hearAll() {
        std::string script;
        for (int32_t i = 0; i < kEffects; i++) {
            script += "key middle\nuntil Playing\nkey middle\nuntil Play\nswipe left\n";
        }
        return script;
    }

    Samples kept() const { return TestSounds::samplesOf(folders.read("state/last-take.wav")); }

    TestFolders folders;
    std::vector<std::string> takes;    // cleaned up, one for each time that "Play" came
    std::vector<std::string> results;  // one for each time that "Playing" came
};

class KeptTakeLostTest : public KeptTakeTest, public testing::WithParamInterface<const char*> {};

std::string nameOf(const testing::TestParamInfo<int32_t>& info) {
    return std::to_string(info.param) + "ms";
}

class KeptTakeSameTest : public KeptTakeTest, public testing::WithParamInterface<int32_t> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Lengths, KeptTakeSameTest, testing::Values(760, 2345, 20000), nameOf);

TEST_P(KeptTakeSameTest, broughtBackItMakesTheSameNineFilesInThisRunAndInTheNext) {
    const int32_t ms = GetParam();
    const std::string stop = ms < 20000 ? "key middle\n" : "";
    run(record({TestSounds::noise(ms * 16, static_cast<uint32_t>(ms)), ms}) + stop +
        "until Play\n" + hearAll() + "last\nuntil Play\n" + hearAll());
    run("last\nuntil Play\n" + hearAll());
    ASSERT_EQ(size_t{3} * kEffects, results.size());
    for (size_t i = 0; i < kEffects; i++) {
        EXPECT_LT(1000U, results[i].size());
        EXPECT_TRUE(results[i] == results[i + kEffects]) << "effect " << i;
        EXPECT_TRUE(results[i] == results[i + 2 * kEffects]) << "effect " << i << ", next run";
    }
    // Each "Playing" leads to "Play" again: eight times, and once after the clean-up.
    ASSERT_EQ(size_t{3} * (kEffects + 1), takes.size());
    EXPECT_LT(1000U, takes[0].size());
    for (const std::string& take : takes) {
        EXPECT_TRUE(take == takes[0]);
    }
}

// Ways in which the program deletes a finished take.
INSTANTIATE_TEST_SUITE_P(
    Ways,
    KeptTakeLostTest,
    testing::Values("",                                                  // the program ends
                    "key right\n",                                       // "Quit"
                    "key left\nuntil Options\ntap 240 554\nkey right\n"  // a new one, and "Back"
                    "until Options\n",
                    "key left\nuntil Options\nfail AudioIn.Prepare 1\ntap 240 554\n"
                    "until MessageAndQuit\nkey middle\n",
                    "key left\nuntil Options\ntap 240 554\nfail AudioIn.Start 1\nkey middle\n"
                    "until MessageAndQuit\n",
                    "fail File.Read 1\nkey middle\nwait 100\n",
                    "background\nwait 100\n"));

TEST_P(KeptTakeLostTest, itComesBackInTheNextRun) {
    const Samples voice = TestSounds::noise(1200 * 16);
    run(record({voice, 1200}) + "key middle\nuntil Play\n" + GetParam());
    EXPECT_EQ(voice, kept());
    EXPECT_FALSE(folders.has("home/Murmelo/MrmLastRec.wav"));
    run("last\nuntil Play\n");
    ASSERT_LE(2U, takes.size());
    EXPECT_TRUE(takes.front() == takes.back());
}

TEST_F(KeptTakeTest, aRecordingThatTheBackgroundInterruptsIsKeptToItsLastSample) {
    const Samples voice = TestSounds::noise(1000 * 16);
    run(record({voice, 1000}) + "background\nwait 100\nforeground\nuntil Options\n");
    EXPECT_EQ(voice, kept());  // the program itself has taken 750 ms
    EXPECT_FALSE(folders.has("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(KeptTakeTest, aRecordingThatTheEndInterruptsIsKeptToItsLastSample) {
    const Samples voice = TestSounds::noise(1000 * 16);
    run(record({voice, 1000}));
    EXPECT_EQ(voice, kept());
}

TEST_F(KeptTakeTest, whatTheDiskDidNotTakeIsKept) {
    const Samples voice = TestSounds::noise(1600 * 16);
    run("fail File.Write 3\n" + record({voice, 1600}) + "key middle\nuntil Play\n");
    EXPECT_EQ(voice, kept());
}

TEST_F(KeptTakeTest, aSoundFileIsATakeAsWell) {
    const Samples voice = TestSounds::noise(16000);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    run("take " + folders.path("voice.wav") +
        "\nuntil Play\nkey left\nuntil Options\n"
        "tap 240 554\nkey right\nuntil Options\nlast\nuntil Play\n");
    EXPECT_EQ(voice, kept());
    ASSERT_EQ(2U, takes.size());
    EXPECT_TRUE(takes[0] == takes[1]);
}

TEST_F(KeptTakeTest, aRecordingThatAFileDisplacedComesBack) {
    const Samples voice = TestSounds::noise(1200 * 16);
    folders.write("other.wav", TestSounds::wav(TestSounds::noise(16000, 2), 16000));
    run(record({voice, 1200}) + "key middle\nuntil Play\ntake " + folders.path("other.wav") +
        "\nuntil Play\nlast\nuntil Play\n");
    ASSERT_EQ(3U, takes.size());
    EXPECT_FALSE(takes[0] == takes[1]);
    EXPECT_TRUE(takes[0] == takes[2]);
    EXPECT_EQ(voice, kept());
}

TEST_F(KeptTakeTest, aRecordingThatWasNotBegunLeavesTheTakeBefore) {
    const Samples voice = TestSounds::noise(1200 * 16);
    run(record({voice, 1200}) + "key middle\nuntil Play\nkey left\nuntil Options\ntap 240 554\n"
                                "key right\nuntil Options\nlast\nuntil Play\n");
    EXPECT_EQ(voice, kept());
}

TEST_F(KeptTakeTest, theUserForgetsIt) {
    run(record({TestSounds::noise(1200 * 16), 1200}) + "key middle\nuntil Play\nforget\n");
    EXPECT_FALSE(folders.has("state/last-take.wav"));
}

TEST_F(KeptTakeTest, ofATakeThatTheDiskHasNoRoomForTheBeginningComesBack) {
    const Samples voice = TestSounds::noise(6 * 16000, 4);
    {
        const FullDisk disk(100000);
        run(record({voice, 6000}) + "key middle\nuntil Play\n");
    }
    const Samples part = kept();
    EXPECT_LE(46000U, part.size());
    ASSERT_GT(voice.size(), part.size());
    EXPECT_EQ(Samples(voice.begin(), voice.begin() + static_cast<ptrdiff_t>(part.size())), part);
    run("last\nuntil Play\n");
    ASSERT_EQ(2U, takes.size());
    EXPECT_EQ(44 + part.size(), takes[1].size());  // cleaned up: half of the samples
}
