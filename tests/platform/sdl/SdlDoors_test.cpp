// SPDX-License-Identifier: MIT
// Files, exports and the last take of the window's program, with doors that only note the calls.
#include "FullDisk.h"
#include "QuietDoors.h"
#include "ScreenNames.h"
#include "SdlDoors.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "TestSounds.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <utility>

using Samples = TestSounds::Samples;

namespace {

class NotingDoors : public QuietDoors {
public:
    NotingDoors() { screen = "Options"; }

    bool saveSound() override {
        saves++;
        return open && !refuses;
    }

    bool canSave() override { return open; }

    bool canUseSound() override { return open; }

    bool showEffect(int32_t) override { return open; }

    bool useSound(const int16_t* samples, int32_t count) override {
        if (open) {
            taken.assign(samples, samples + count);
        }
        return open;
    }

    bool useTake(const int16_t* samples, int32_t count) override {
        if (open) {
            broughtBack.assign(samples, samples + count);
        }
        return open;
    }

    int32_t savedCount() override { return saved; }

    std::string savedName() override { return "rec_00007.wav"; }

    std::vector<uint8_t> canvasPng() override { return {'p', 'n', 'g'}; }

    bool open = true;
    bool refuses = false;  // there is no take
    int32_t saves = 0;
    int32_t saved = 0;
    Samples taken;
    Samples broughtBack;
};

class SdlDoorsTest : public testing::Test {
protected:
    SdlDoorsTest() {
        mapped.home = folders.path("home");
        doors.setDoors(&program);
        testing::internal::CaptureStdout();
    }

    ~SdlDoorsTest() override { testing::internal::GetCapturedStdout(); }

    bool drop(const std::vector<std::string>& paths) {
        SDL_Event event{};
        event.type = SDL_DROPBEGIN;
        bool delivers = doors.handle(event);
        for (const std::string& path : paths) {
            event.type = SDL_DROPFILE;
            event.drop.file = SDL_strdup(path.c_str());
            delivers = doors.handle(event) || delivers;
        }
        return delivers;
    }

    bool drop(const std::string& path) { return drop(std::vector<std::string>{path}); }

    void dropText(const std::string& text) {
        SDL_Event event{};
        event.type = SDL_DROPBEGIN;
        doors.handle(event);
        event.type = SDL_DROPTEXT;
        event.drop.file = SDL_strdup(text.c_str());
        doors.handle(event);
    }

    /// Calls deliver() until a callback was delivered or a message was told. False if neither
    /// happens.
    bool delivered() {
        std::unique_lock<std::mutex> lock(mutex);
        for (int32_t i = 0; i < 1000; i++) {
            lock.unlock();
            const bool delivers = doors.deliver();
            lock.lock();
            if (delivers || !host.sentences.empty()) {
                return delivers;
            }
            woken.wait_for(lock, std::chrono::milliseconds(20));
        }
        ADD_FAILURE() << "nothing came";
        return false;
    }

    /// Takes a picture, and waits until it is written.
    void takePicture() {
        doors.takePicture();
        EXPECT_TRUE(doors.isBusy());  // the window does not wait for the disk
        EXPECT_TRUE(doors.finish());
    }

    /// The output since the last call.
    static std::string output() {
        std::string text = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return text;
    }

    /// The messages for the user since the last call, line by line.
    std::string error() {
        std::string text;
        for (const std::string& sentence : std::exchange(host.sentences, {})) {
            text += sentence + "\n";
        }
        return text;
    }

    TestHost host;
    TestFolders folders;
    HostFolders mapped;
    NotingDoors program;
    std::mutex mutex;
    std::condition_variable woken;
    TakeKeeper takes{folders.path("state"), [](const HostMessage&, const std::string&) {}};
    SdlDoors doors{mapped, takes,
                   [this](const HostMessage& message) { host.tell(message, message.text("en")); },
                   [](int32_t effect) { return effect == 0 ? "none" : "another"; },
                   [this] { woken.notify_all(); }};
};

}  // namespace

TEST_F(SdlDoorsTest, aSaveIsTheProgramsSave) {
    EXPECT_TRUE(doors.save());
    EXPECT_EQ(1, program.saves);
    EXPECT_EQ("", error());
}

TEST_F(SdlDoorsTest, aSaveThatIsRefusedSaysWhere) {
    program.open = false;
    EXPECT_FALSE(doors.save());
    EXPECT_EQ("You can do this in the menu and while you choose an effect.\n", error());
}

TEST_F(SdlDoorsTest, aSaveWithoutATakeSaysSo) {
    program.refuses = true;
    EXPECT_FALSE(doors.save());
    EXPECT_EQ("There is nothing to save yet. Record something first.\n", error());
}

TEST_F(SdlDoorsTest, aSavedSoundIsToldByItsRealPathOnce) {
    doors.tellSaved();
    EXPECT_EQ("", output());
    program.saved = 1;
    doors.tellSaved();
    doors.tellSaved();
    EXPECT_EQ(mapped.home + "/Murmelo/rec_00007.wav\n", output());
}

TEST_F(SdlDoorsTest, aDroppedFileBecomesTheTake) {
    const Samples voice = TestSounds::noise(16000);
    folders.write("a voice.wav", TestSounds::wav(voice, 16000));
    EXPECT_FALSE(drop(folders.path("a voice.wav")));  // first it is read
    EXPECT_TRUE(delivered());
    EXPECT_EQ(voice, program.taken);
    EXPECT_EQ("", error());
}

TEST_F(SdlDoorsTest, aFileThatReplacesARecordingWhichIsNotSavedSaysSo) {
    folders.write("a.wav", TestSounds::wav(TestSounds::noise(1600), 16000));
    const auto dropped = [this] {
        doors.useFile(folders.path("a.wav"));
        EXPECT_TRUE(delivered());
        return error();
    };
    takes.recorded(TestSounds::noise(160));
    EXPECT_EQ("a.wav replaces the recording.\n", dropped());
    EXPECT_EQ("", dropped());  // it replaces a file
    takes.recorded(TestSounds::noise(160));
    program.saved++;
    doors.tellSaved();
    EXPECT_EQ("", dropped());  // the recording is saved
}

TEST_F(SdlDoorsTest, aDroppedAddressBecomesTheTake) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("a voice.wav", TestSounds::wav(voice, 16000));
    drop("file://" + folders.path("a%20voice.wav"));
    EXPECT_TRUE(delivered());
    EXPECT_EQ(voice, program.taken);
}

TEST_F(SdlDoorsTest, aDroppedTextIsTakenForTheNameOfAFile) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("a voice.wav", TestSounds::wav(voice, 16000));
    dropText("file://" + folders.path("a%20voice.wav") + "\r\n");
    EXPECT_TRUE(delivered());
    EXPECT_EQ(voice, program.taken);
    dropText("Dear reader");
    EXPECT_FALSE(delivered());
    EXPECT_EQ(0U, error().find("Dear reader is no sound file: "));
}

TEST_F(SdlDoorsTest, aFileDroppedBeforeTheProgramHasStartedWaitsForIt) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    doors.setDoors(nullptr);
    EXPECT_FALSE(drop(folders.path("voice.wav")));
    doors.setDoors(&program);
    EXPECT_TRUE(delivered());
    EXPECT_EQ(voice, program.taken);
}

TEST_F(SdlDoorsTest, ofSeveralFilesDroppedTogetherTheFirstCounts) {
    const Samples voice = TestSounds::noise(1600);
    folders.write("one.wav", TestSounds::wav(voice, 16000));
    folders.write("two.wav", TestSounds::wav(TestSounds::noise(1600, 2), 16000));
    for (int32_t times = 0; times < 2; times++) {
        drop({folders.path("one.wav"), folders.path("two.wav"), folders.path("three.wav")});
        EXPECT_EQ("Of several files only the first counts: one.wav\n", error());
        EXPECT_TRUE(delivered());
        EXPECT_EQ(voice, std::exchange(program.taken, {}));
        EXPECT_FALSE(doors.isBusy());
    }
}

TEST_F(SdlDoorsTest, ofALongSoundTheFirstTwentySecondsAreTakenAndThatIsTold) {
    const Samples voice = TestSounds::noise(20 * 16000 + 1);
    folders.write("long.wav", TestSounds::wav(voice, 16000));
    drop(folders.path("long.wav"));
    EXPECT_TRUE(delivered());
    EXPECT_EQ(TestSounds::part(voice, 0, 20 * 16000), program.taken);
    EXPECT_EQ("The first 20 seconds of long.wav\n", error());
}

TEST_F(SdlDoorsTest, aDroppedFileThatIsNoSoundIsToldByName) {
    folders.write("letter.txt", "Dear reader");
    for (const char* name : {"letter.txt", "nothing.wav"}) {
        EXPECT_FALSE(drop(folders.path(name)));
        EXPECT_FALSE(delivered());
        EXPECT_EQ(0U, error().find(std::string(name) + " is no sound file: "));
    }
    folders.write("empty.wav", TestSounds::wav({}, 16000));
    drop(folders.path("empty.wav"));
    EXPECT_FALSE(delivered());
    EXPECT_EQ("empty.wav holds no sound.\n", error());
    EXPECT_TRUE(program.taken.empty());
}

TEST_F(SdlDoorsTest, aFileDroppedAtTheWrongTimeIsToldSo) {
    program.open = false;
    folders.write("voice.wav", TestSounds::wav(TestSounds::noise(800), 16000));
    drop(folders.path("voice.wav"));
    EXPECT_FALSE(delivered());
    EXPECT_EQ("You can do this in the menu and while you choose an effect.\n", error());
}

TEST_F(SdlDoorsTest, anOfferedSoundWaitsUntilItIsTaken) {
    const Samples voice = TestSounds::noise(160);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    EXPECT_FALSE(doors.deliver());
    program.open = false;  // the opening still stands
    doors.offer(folders.path("voice.wav"));
    while (doors.isBusy()) {
        EXPECT_FALSE(doors.deliver());
    }
    program.open = true;
    EXPECT_TRUE(doors.deliver());
    EXPECT_EQ(voice, program.taken);
    EXPECT_FALSE(doors.deliver());  // taken once
    EXPECT_EQ("", error());         // waiting is no error
}

TEST_F(SdlDoorsTest, anOfferedSoundGivesWayToARecording) {
    folders.write("voice.wav", TestSounds::wav(TestSounds::noise(160), 16000));
    program.screen = "Splash";
    program.open = false;
    doors.offer(folders.path("voice.wav"));
    while (doors.isBusy()) {
        EXPECT_FALSE(doors.deliver());
    }
    program.screen = "Recording";
    EXPECT_FALSE(doors.deliver());
    EXPECT_EQ("voice.wav is not used, for a recording has begun.\n", error());
    program.screen = "Play";
    program.open = true;
    EXPECT_FALSE(doors.deliver());
    EXPECT_TRUE(program.taken.empty());
    EXPECT_EQ("", error());
}

TEST_F(SdlDoorsTest, anOfferedSoundThatIsStillReadGivesWayToARecordingToo) {
    folders.write("voice.wav", TestSounds::wav(TestSounds::noise(160), 16000));
    program.open = false;
    doors.offer(folders.path("voice.wav"));
    program.screen = "Recording";
    EXPECT_FALSE(doors.deliver());  // perhaps it is read only after this
    program.screen = "Play";
    program.open = true;
    while (doors.isBusy()) {
        EXPECT_FALSE(doors.deliver());
    }
    EXPECT_FALSE(doors.deliver());
    EXPECT_TRUE(program.taken.empty());
    EXPECT_EQ("voice.wav is not used, for a recording has begun.\n", error());
}

TEST_F(SdlDoorsTest, theLastTakeThatWaitsGivesWayToARecordingAndIsToldToo) {
    takes.recorded(TestSounds::noise(160));
    program.open = false;
    doors.bringBackLater();
    EXPECT_FALSE(doors.deliver());
    while (doors.isBusy()) {
        EXPECT_FALSE(doors.deliver());
    }
    program.screen = "Recording";
    EXPECT_FALSE(doors.deliver());
    EXPECT_FALSE(doors.deliver());
    EXPECT_EQ("The last recording does not come back, for a new one has begun.\n", error());
    program.screen = "Play";
    program.open = true;
    EXPECT_FALSE(doors.deliver());
    EXPECT_TRUE(program.taken.empty());
}

TEST_F(SdlDoorsTest, aFileThatComesBeforeTheMenuWaitsForIt) {
    const Samples voice = TestSounds::noise(160);
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    for (const char* screen : {"", ScreenNames::kFirstLanguage, ScreenNames::kSplash}) {
        program.screen = screen;
        program.open = false;
        program.taken.clear();
        doors.useFile(folders.path("voice.wav"));
        while (doors.isBusy()) {
            EXPECT_FALSE(doors.deliver());
        }
        EXPECT_FALSE(doors.deliver());
        program.open = true;
        EXPECT_TRUE(doors.deliver()) << screen;
        EXPECT_EQ(voice, program.taken) << screen;
        EXPECT_EQ("", error());
    }
}

TEST_F(SdlDoorsTest, theLastTakeComesBack) {
    const Samples voice = TestSounds::noise(21 * 16000);
    takes.recorded(voice);
    EXPECT_FALSE(doors.bringBack());  // first it is read, on another thread
    EXPECT_TRUE(program.broughtBack.empty());
    EXPECT_TRUE(delivered());
    EXPECT_EQ(voice, program.broughtBack);
    EXPECT_EQ("The last recording is back.\n", error());
}

TEST_F(SdlDoorsTest, whatCannotBeBroughtBackIsTold) {
    EXPECT_FALSE(doors.bringBack());
    EXPECT_EQ("There is no last recording.\n", error());
    takes.recorded(TestSounds::noise(100));
    program.open = false;
    EXPECT_FALSE(doors.bringBack());
    EXPECT_FALSE(delivered());
    EXPECT_EQ("You can do this in the menu and while you choose an effect.\n", error());
    folders.write("state/last-take.wav", "damaged");
    EXPECT_FALSE(doors.bringBack());
    EXPECT_FALSE(delivered());
    EXPECT_EQ(0U, error().find("The last recording cannot be brought back: "));
}

TEST_F(SdlDoorsTest, theLastTakeComesBackOnceTheProgramRests) {
    const Samples voice = TestSounds::noise(100);
    takes.recorded(voice);
    doors.bringBackLater();
    program.open = false;
    EXPECT_FALSE(doors.deliver());
    while (doors.isBusy()) {
        EXPECT_FALSE(doors.deliver());
    }
    EXPECT_EQ("", error());
    program.open = true;
    EXPECT_TRUE(doors.deliver());
    EXPECT_EQ(voice, program.broughtBack);
    EXPECT_FALSE(doors.deliver());
}

TEST_F(SdlDoorsTest, theLastTakeThatWaitsGivesWayToARecording) {
    takes.recorded(TestSounds::noise(100));
    doors.bringBackLater();
    program.open = false;
    do {
        EXPECT_FALSE(doors.deliver());
    } while (doors.isBusy());
    program.screen = "Recording";
    EXPECT_FALSE(doors.deliver());
    program.screen = "Play";
    program.open = true;
    EXPECT_FALSE(doors.deliver());
    EXPECT_TRUE(program.broughtBack.empty());
}

TEST_F(SdlDoorsTest, theLastTakeIsForgotten) {
    takes.recorded(TestSounds::noise(100));
    EXPECT_FALSE(doors.forget());
    EXPECT_EQ("The last recording is forgotten.\n", error());
    EXPECT_FALSE(takes.isThere());
}

TEST_F(SdlDoorsTest, aDroppedFileIsKeptWhenTheProgramHasEnded) {
    const Samples voice = TestSounds::noise(1600);
    takes.recorded(TestSounds::noise(100, 2));
    folders.write("voice.wav", TestSounds::wav(voice, 16000));
    drop(folders.path("voice.wav"));
    EXPECT_TRUE(delivered());
    doors.setDoors(nullptr);
    Samples kept;
    EXPECT_EQ("", takes.bringBack(kept));
    EXPECT_EQ(voice, kept);
}

TEST_F(SdlDoorsTest, withoutADesktopsDialogTheUserIsToldWhatToDo) {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("XDG_RUNTIME_DIR", folders.path("runtime").c_str(), 1);
    EXPECT_FALSE(doors.openFile());
    EXPECT_FALSE(delivered());
    EXPECT_EQ("This desktop offers no dialog to open files. Drop a sound file here.\n", error());
    program.saved = 1;
    doors.tellSaved();
    EXPECT_FALSE(doors.exportSound());
    EXPECT_FALSE(delivered());
    EXPECT_EQ("This desktop offers no dialog to save files. The sound is here: " + mapped.home +
                  "/Murmelo/rec_00007.wav\n",
              error());
    EXPECT_EQ(0, program.saves);  // it was saved already
}

TEST_F(SdlDoorsTest, anExportSavesTheSoundFirst) {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("XDG_RUNTIME_DIR", folders.path("runtime").c_str(), 1);
    EXPECT_TRUE(doors.exportSound());
    EXPECT_EQ(1, program.saves);
    EXPECT_FALSE(doors.isBusy());
    program.saved = 1;
    doors.tellSaved();
    EXPECT_FALSE(delivered());
    EXPECT_NE("", error());
}

TEST_F(SdlDoorsTest, anExportWhoseSaveFailedAsksForNoNameLater) {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("XDG_RUNTIME_DIR", folders.path("runtime").c_str(), 1);
    EXPECT_TRUE(doors.exportSound());
    program.open = false;  // it tells that the disk is full
    doors.tellSaved();
    program.open = true;  // the user has gone back
    doors.tellSaved();
    program.saved = 1;  // saved by the phone's own menu
    doors.tellSaved();
    EXPECT_FALSE(doors.isBusy());
    EXPECT_FALSE(doors.isAsking());
}

TEST_F(SdlDoorsTest, aPictureIsTheCanvasUnderTheNextFreeName) {
    folders.write("home/Murmelo/screen_00001.png", "kept");
    takePicture();
    takePicture();
    EXPECT_EQ("png", folders.read("home/Murmelo/screen_00000.png"));
    EXPECT_EQ("kept", folders.read("home/Murmelo/screen_00001.png"));
    EXPECT_EQ("png", folders.read("home/Murmelo/screen_00002.png"));
    EXPECT_EQ(mapped.home + "/Murmelo/screen_00000.png\n" + mapped.home +
                  "/Murmelo/screen_00002.png\n",
              output());
}

TEST_F(SdlDoorsTest, aPictureThatTheDiskHasNoRoomForLeavesNothing) {
    folders.makeFolder("home/Murmelo");
    {
        const FullDisk disk(2);  // bytes: the picture is larger
        takePicture();
    }
    EXPECT_TRUE(std::filesystem::is_empty(folders.path("home/Murmelo")));
    EXPECT_NE(std::string::npos, error().find("cannot be written"));
    EXPECT_EQ("", output());
}

TEST_F(SdlDoorsTest, aPictureWhereNothingCanBeWrittenIsToldSo) {
    folders.write("home", "a file where the folder should be");
    takePicture();
    EXPECT_EQ("", output());
    EXPECT_NE(std::string::npos, error().find("cannot be written"));
}

TEST_F(SdlDoorsTest, beforeTheProgramOpensItsDoorsNothingHappens) {
    doors.setDoors(nullptr);
    EXPECT_FALSE(doors.save());
    EXPECT_FALSE(doors.exportSound());
    EXPECT_FALSE(doors.openFile());
    doors.takePicture();
    doors.bringBackLater();
    EXPECT_FALSE(doors.bringBack());
    EXPECT_FALSE(doors.deliver());
    doors.tellSaved();
    EXPECT_EQ("", output());
    EXPECT_EQ("", error());
}
