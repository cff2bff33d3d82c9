// What a computer offers beyond the phone, with doors that only take notes.
#include "SdlDoors.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "TestSounds.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <utility>

using Samples = TestSounds::Samples;

namespace {

class NotingDoors : public HostDoors {
public:
    std::string screenName() override { return "Options"; }

    int32_t currentEffect() override { return 0; }

    bool navigate(HostKey) override { return false; }

    bool stopRecording() override { return false; }

    bool saveSound() override {
        saves++;
        return open;
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

    int32_t savedCount() override { return saved; }

    std::string savedName() override { return "rec_00007.wav"; }

    std::vector<uint8_t> canvasPng() override { return {'p', 'n', 'g'}; }

    ScreenTexts texts() override { return {}; }

    bool open = true;
    int32_t saves = 0;
    int32_t saved = 0;
    Samples taken;
};

class SdlDoorsTest : public testing::Test {
protected:
    SdlDoorsTest() {
        mapped.home = folders.path("home");
        doors.setDoors(&program);
        testing::internal::CaptureStdout();
    }

    ~SdlDoorsTest() override { testing::internal::GetCapturedStdout(); }

    bool press(int32_t symbol, uint16_t modifiers = 0, uint8_t repeat = 0) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = symbol;
        event.key.keysym.mod = modifiers;
        event.key.repeat = repeat;
        return doors.handle(event);
    }

    bool drop(const std::string& path) {
        SDL_Event event{};
        event.type = SDL_DROPFILE;
        event.drop.file = SDL_strdup(path.c_str());
        return doors.handle(event);
    }

    /// What was printed since the last look.
    static std::string output() {
        std::string text = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return text;
    }

    /// What the host was asked to say since the last look, line by line.
    std::string error() {
        std::string text;
        for (const std::string& sentence : std::exchange(host.said, {})) {
            text += sentence + "\n";
        }
        return text;
    }

    TestHost host;
    TestFolders folders;
    HostFolders mapped;
    NotingDoors program;
    SdlDoors doors{mapped};
};

}  // namespace

TEST_F(SdlDoorsTest, controlAndSSavesOnce) {
    EXPECT_TRUE(press(SDLK_s, KMOD_LCTRL));
    EXPECT_TRUE(press(SDLK_s, KMOD_RCTRL));
    EXPECT_FALSE(press(SDLK_s, KMOD_LCTRL, 1));  // held down
    EXPECT_FALSE(press(SDLK_s));
    EXPECT_EQ(2, program.saves);
    EXPECT_EQ("", error());
}

TEST_F(SdlDoorsTest, aSaveThatIsRefusedSaysWhere) {
    program.open = false;
    EXPECT_FALSE(press(SDLK_s, KMOD_LCTRL));
    EXPECT_EQ("a sound can be saved in the menu and at the choice of the effect, once there is "
              "one\n",
              error());
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
    EXPECT_TRUE(drop(folders.path("a voice.wav")));
    EXPECT_EQ(voice, program.taken);
}

TEST_F(SdlDoorsTest, aDroppedFileThatIsNoSoundIsToldByName) {
    folders.write("letter.txt", "Dear reader");
    EXPECT_FALSE(drop(folders.path("letter.txt")));
    EXPECT_NE(std::string::npos, error().find("letter.txt"));
    EXPECT_FALSE(drop(folders.path("nothing.wav")));
    EXPECT_NE(std::string::npos, error().find("nothing.wav"));
    EXPECT_TRUE(program.taken.empty());
}

TEST_F(SdlDoorsTest, aFileDroppedAtTheWrongTimeIsToldSo) {
    program.open = false;
    folders.write("voice.wav", TestSounds::wav(TestSounds::noise(800), 16000));
    EXPECT_FALSE(drop(folders.path("voice.wav")));
    EXPECT_NE(std::string::npos, error().find("a sound file is taken in the menu"));
}

TEST_F(SdlDoorsTest, anOfferedSoundWaitsUntilItIsTaken) {
    const Samples voice = TestSounds::noise(160);
    EXPECT_FALSE(doors.deliver());
    doors.offer(voice);
    program.open = false;  // the opening still stands
    EXPECT_FALSE(doors.deliver());
    program.open = true;
    EXPECT_TRUE(doors.deliver());
    EXPECT_EQ(voice, program.taken);
    EXPECT_FALSE(doors.deliver());  // taken once
    EXPECT_EQ("", error());         // waiting is nothing to complain about
}

TEST_F(SdlDoorsTest, f12WritesTheCanvasUnderTheNextFreeName) {
    folders.write("home/Murmelo/screen_00001.png", "kept");
    EXPECT_FALSE(press(SDLK_F12));  // nothing for the program to react to
    press(SDLK_F12);
    EXPECT_EQ("png", folders.read("home/Murmelo/screen_00000.png"));
    EXPECT_EQ("kept", folders.read("home/Murmelo/screen_00001.png"));
    EXPECT_EQ("png", folders.read("home/Murmelo/screen_00002.png"));
    EXPECT_EQ(mapped.home + "/Murmelo/screen_00000.png\n" + mapped.home +
                  "/Murmelo/screen_00002.png\n",
              output());
}

TEST_F(SdlDoorsTest, f12WhereNothingCanBeWrittenIsToldSo) {
    folders.write("home", "a file where the folder should be");
    press(SDLK_F12);
    EXPECT_EQ("", output());
    EXPECT_NE(std::string::npos, error().find("cannot be written"));
}

TEST_F(SdlDoorsTest, beforeTheProgramOpensItsDoorsNothingHappens) {
    doors.setDoors(nullptr);
    EXPECT_FALSE(press(SDLK_s, KMOD_LCTRL));
    EXPECT_FALSE(press(SDLK_F12));
    doors.offer(TestSounds::noise(16));
    EXPECT_FALSE(doors.deliver());
    doors.tellSaved();
    EXPECT_EQ("", output());
    EXPECT_EQ("", error());
}
