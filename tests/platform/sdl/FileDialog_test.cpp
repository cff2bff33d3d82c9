// SPDX-License-Identifier: MIT
// Files are opened and exported with a desktop's dialogs, on a bus of the test's own, where the
// test is the user.
#include "FileDialog.h"
#include "QuietDoors.h"
#include "SdlDoors.h"
#include "TestBus.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "TestSounds.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <functional>

using Samples = TestSounds::Samples;

namespace {

class MenuDoors : public QuietDoors {
public:
    MenuDoors() {
        screen = "Options";
        language = "de";
    }

    int32_t currentEffect() override { return 1; }

    bool useSound(const int16_t* samples, int32_t count) override {
        taken.assign(samples, samples + count);
        return true;
    }

    int32_t savedCount() override { return saved; }

    std::string savedName() override { return saved > 0 ? "rec_00003.wav" : ""; }

    int32_t saved = 0;
    Samples taken;
};

class FileDialogTest : public testing::Test {
protected:
    void SetUp() override {
        NEEDS_TEST_BUS();
        ASSERT_TRUE(bus.start());
        mapped.home = folders.path("home");
        folders.write("home/Murmelo/rec_00003.wav", TestSounds::wav(sound, 8000));
        doors.setDoors(&program);
    }

    void startPortal(const std::string& mode, const std::string& path = "") {
        ASSERT_TRUE(bus.serve("fake_portal.py", {mode, path.empty() ? "" : "file://" + path}));
    }

    /// The program has saved its sound.
    void save() {
        program.saved = 1;
        testing::internal::CaptureStdout();
        doors.tellSaved();
        testing::internal::GetCapturedStdout();
    }

    bool workUntil(const std::function<bool()>& happened) {
        return TestBus::until([&] {
            doors.deliver();
            return happened();
        });
    }

    bool isSaid(const std::string& sentence) {
        return !host.sentences.empty() && host.sentences.back() == sentence;
    }

    const Samples sound = TestSounds::noise(8000);
    TestHost host;
    TestFolders folders;
    HostFolders mapped;
    MenuDoors program;
    TakeKeeper takes{"", [](const HostMessage&, const std::string&) {}};
    SdlDoors doors{mapped, takes,
                   [this](const HostMessage& message) { host.tell(message, message.text("en")); },
                   [](int32_t effect) { return effect == 1 ? "robot" : "another"; }, [] {}};
    TestBus bus{folders};
};

}  // namespace

TEST_F(FileDialogTest, aChosenFileBecomesTheTake) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("a voice.wav", TestSounds::wav(voice, 16000));
    startPortal("choose", folders.path("a%20voice.wav"));
    EXPECT_FALSE(doors.openFile());
    EXPECT_TRUE(workUntil([this] { return !program.taken.empty(); }));
    EXPECT_EQ(voice, program.taken);
    const std::string call = folders.read("calls");
    EXPECT_EQ(0U,
              call.find(R"(["OpenFile", "", "Tondatei \u00f6ffnen", {"handle_token": "murmelo)"))
        << call;
    EXPECT_NE(std::string::npos, call.find(R"("filters": [["Tondateien", [[1, "audio/*"]]]])"))
        << call;
}

TEST_F(FileDialogTest, theWindowWorksOnWhileTheDialogIsOpenAndThereIsOnlyOne) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    startPortal("wait", folders.path("voice.wav"));
    doors.openFile();
    ASSERT_TRUE(workUntil([this] { return folders.has("calls"); }));
    doors.openFile();
    EXPECT_TRUE(isSaid("The desktop’s dialog is open already."));
    host.sentences.clear();
    save();
    EXPECT_FALSE(doors.exportSound());
    EXPECT_TRUE(isSaid("The desktop’s dialog is open already."));
    EXPECT_FALSE(doors.deliver());
    EXPECT_TRUE(doors.isBusy());
    folders.write("calls.go", "");
    EXPECT_TRUE(workUntil([this] { return !program.taken.empty(); }));
    EXPECT_TRUE(workUntil([this] { return !doors.isBusy(); }));
    const std::string calls = folders.read("calls");
    EXPECT_EQ(calls.find('\n'), calls.size() - 1) << calls;  // one line
}

TEST_F(FileDialogTest, theDialogBelongsToTheWindow) {
    startPortal("cancel");
    doors.onParent([] { return "x11:1e00007"; });
    doors.openFile();
    EXPECT_TRUE(workUntil([this] { return !doors.isBusy(); }));
    EXPECT_EQ(0U, folders.read("calls").find(R"(["OpenFile", "x11:1e00007", "Tondatei)"));
}

TEST_F(FileDialogTest, aDialogThatIsClosedChangesNothing) {
    startPortal("cancel");
    doors.openFile();
    EXPECT_TRUE(workUntil([this] { return !doors.isBusy(); }));
    EXPECT_TRUE(program.taken.empty());
    EXPECT_TRUE(host.sentences.empty());
}

TEST_F(FileDialogTest, aDesktopThatDiesIsADialogThatIsClosed) {
    startPortal("die");
    doors.openFile();
    EXPECT_TRUE(workUntil([this] { return !doors.isBusy(); }));
    EXPECT_TRUE(host.sentences.empty());
    // The next time there is none at all.
    doors.openFile();
    EXPECT_TRUE(workUntil([this] {
        return isSaid("This desktop offers no dialog to open files. Drop a sound file here.");
    }));
}

TEST_F(FileDialogTest, aBusThatDiesIsADialogThatIsClosed) {
    startPortal("wait", "/nothing.wav");
    doors.openFile();
    ASSERT_TRUE(workUntil([this] { return folders.has("calls"); }));
    bus.kill();
    EXPECT_TRUE(workUntil([this] { return !doors.isBusy(); }));
}

TEST_F(FileDialogTest, aDesktopWithoutDialogsIsTold) {
    doors.openFile();
    EXPECT_TRUE(workUntil([this] {
        return isSaid("This desktop offers no dialog to open files. Drop a sound file here.");
    }));
}

TEST_F(FileDialogTest, aDialogThatCannotBeShownIsTold) {
    startPortal("refuse");
    doors.openFile();
    EXPECT_TRUE(workUntil([this] {
        return isSaid("This desktop offers no dialog to open files. Drop a sound file here.");
    }));
}

TEST_F(FileDialogTest, theSavedSoundIsExportedInTheFormThatItsNameAsksFor) {
    startPortal("choose", folders.path("my%20robot.flac"));
    save();
    EXPECT_FALSE(doors.exportSound());
    EXPECT_TRUE(workUntil([this] { return isSaid("Exported: " + folders.path("my robot.flac")); }));
    EXPECT_EQ("fLaC", folders.read("my robot.flac").substr(0, 4));
    const std::string call = folders.read("calls");
    EXPECT_EQ(0U, call.find(R"(["SaveFile", "", "Sound exportieren")")) << call;
    EXPECT_NE(std::string::npos, call.find(R"("current_name": "murmelo-robot-00003.wav")")) << call;
    EXPECT_NE(std::string::npos,
              call.find(R"("current_folder": ")" + mapped.home + R"(/Murmelo\u0000")"))
        << call;
}

TEST_F(FileDialogTest, anExportIsFinishedWhenTheProgramEndsAndADialogIsNotWaitedFor) {
    startPortal("wait", folders.path("robot.flac"));
    save();
    doors.exportSound();
    ASSERT_TRUE(workUntil([this] { return folders.has("calls"); }));
    EXPECT_FALSE(doors.finish());
    EXPECT_FALSE(folders.has("robot.flac"));
    folders.write("calls.go", "");
    // The answer has come and the writing has begun, or is already done.
    ASSERT_TRUE(workUntil([this] { return !doors.isAsking(); }));
    doors.setDoors(nullptr);
    EXPECT_TRUE(doors.finish());
    EXPECT_EQ("fLaC", folders.read("robot.flac").substr(0, 4));
}

TEST_F(FileDialogTest, anExportIsFinishedWhenTheProgramEndsWithAnotherDialogOpen) {
    // Long enough to be written for some time.
    folders.write("home/Murmelo/rec_00003.wav", TestSounds::wav(TestSounds::noise(4000000), 8000));
    startPortal("wait", folders.path("robot.flac"));
    save();
    doors.exportSound();
    folders.write("calls.go", "");
    ASSERT_TRUE(workUntil([this] { return !doors.isAsking(); }));
    folders.remove("calls.go");
    doors.openFile();
    doors.setDoors(nullptr);
    EXPECT_FALSE(doors.finish());
    EXPECT_EQ("fLaC", folders.read("robot.flac").substr(0, 4));
}

TEST_F(FileDialogTest, anExportThatCannotBeWrittenIsTold) {
    startPortal("choose", folders.path("robot.txt"));
    save();
    doors.exportSound();
    EXPECT_TRUE(workUntil([this] {
        return isSaid(folders.path("robot.txt") + " cannot be written: its name must end in .wav, "
                                                  ".flac, .ogg, .opus or .mp3");
    }));
    EXPECT_FALSE(folders.has("robot.txt"));
}
