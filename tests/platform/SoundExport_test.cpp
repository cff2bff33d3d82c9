// SPDX-License-Identifier: MIT
// Saved sounds are exported in all formats.
#include "FullDisk.h"
#include "SafeFile.h"
#include "SoundExport.h"
#include "SoundFile.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <filesystem>
#include <set>
#include <sys/stat.h>

using Samples = TestSounds::Samples;

namespace {

class SoundExportTest : public testing::Test {
protected:
    SoundExportTest() {
        for (int32_t i = 0; i < 2 * 8000; i++) {
            sound.push_back(static_cast<int16_t>(9000 * std::sin(i * 0.3)));
        }
        folders.write("rec_00003.wav", TestSounds::wav(sound, 8000));
    }

    Problem exportTo(const std::string& name) const {
        return SoundExport::write(sound, folders.path(name));
    }

    Samples readBack(const std::string& name) const {
        Samples samples;
        EXPECT_EQ("", SoundFile::read(folders.path(name), 8000, 1 << 20, samples)) << name;
        return samples;
    }

    TestFolders folders;
    Samples sound;
};

}  // namespace

TEST_F(SoundExportTest, wavAndFlacKeepEveryBit) {
    for (const char* name : {"a.wav", "a.WAV", "a.flac", "no ending"}) {
        EXPECT_EQ("", exportTo(name)) << name;
        EXPECT_EQ(sound, readBack(name)) << name;
    }
    EXPECT_EQ("RIFF", folders.read("no ending").substr(0, 4));
    EXPECT_EQ("fLaC", folders.read("a.flac").substr(0, 4));
}

TEST_F(SoundExportTest, theOthersAreTheSameSoundToTheEar) {
    for (const char* name : {"a.ogg", "a.oga", "a.opus", "a.mp3"}) {
        ASSERT_EQ("", exportTo(name)) << name;
        const Samples heard = readBack(name);
        // A coder may begin late and fill its last frame.
        ASSERT_LE(sound.size(), heard.size() + 2000) << name;
        ASSERT_GE(sound.size() + 4000, heard.size()) << name;
        double loudness = 0;
        for (size_t i = 4000; i < 12000; i++) {
            loudness += static_cast<double>(heard[i]) * heard[i];
        }
        EXPECT_NEAR(9000 / std::sqrt(2), std::sqrt(loudness / 8000), 900) << name;
    }
    EXPECT_EQ("OggS", folders.read("a.ogg").substr(0, 4));
    EXPECT_NE(std::string::npos, folders.read("a.opus").find("OpusHead"));
    EXPECT_NE(std::string::npos, folders.read("a.ogg").find("vorbis"));
}

TEST_F(SoundExportTest, anEndingThatMeansNothingWritesNothing) {
    folders.write("a.txt", "a letter");
    EXPECT_EQ("its name must end in .wav, .flac, .ogg, .opus or .mp3", exportTo("a.txt"));
    EXPECT_EQ("a letter", folders.read("a.txt"));
}

TEST_F(SoundExportTest, aFileThatIsReplacedLeavesNothingBeside) {
    folders.write("a.wav", "old");
    EXPECT_EQ("", exportTo("a.wav"));
    EXPECT_EQ(sound, readBack("a.wav"));
    EXPECT_FALSE(folders.has("a.wav.new"));
}

TEST_F(SoundExportTest, aFileOfTheUsersBesideTheTargetStays) {
    folders.write("a.wav.new", "a letter");
    EXPECT_EQ("", exportTo("a.wav"));
    EXPECT_EQ(sound, readBack("a.wav"));
    EXPECT_EQ("a letter", folders.read("a.wav.new"));
}

TEST_F(SoundExportTest, whoMayReadTheOldFileMayReadTheNewOneAndNoOneElse) {
    folders.write("a.wav", "old");
    ASSERT_EQ(0, chmod(folders.path("a.wav").c_str(), 0600));
    EXPECT_EQ("", exportTo("a.wav"));
    struct stat facts = {};
    ASSERT_EQ(0, stat(folders.path("a.wav").c_str(), &facts));
    EXPECT_EQ(0600U, facts.st_mode & 07777U);
    EXPECT_EQ("", exportTo("b.wav"));
    const mode_t mask = umask(0);
    umask(mask);
    ASSERT_EQ(0, stat(folders.path("b.wav").c_str(), &facts));
    EXPECT_EQ(0666U & ~mask, facts.st_mode & 07777U);
}

TEST_F(SoundExportTest, anExportLeavesNothingBesideWhateverComesOfIt) {
    folders.makeFolder("out");
    EXPECT_EQ("", exportTo("out/a.wav"));
    folders.makeFolder("out/b.wav");
    EXPECT_NE("", exportTo("out/b.wav").sentence());
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folders.path("out"))) {
        names.insert(entry.path().filename().string());
    }
    EXPECT_EQ((std::set<std::string>{"a.wav", "b.wav"}), names);
}

TEST_F(SoundExportTest, whatCannotBeWrittenIsToldAndLeavesTheOldFile) {
    EXPECT_NE("", exportTo("no folder/a.wav").sentence());
    folders.makeFolder("a.wav");
    EXPECT_EQ("it is a folder", exportTo("a.wav"));
    const FullDisk disk(100);
    EXPECT_EQ("File too large", exportTo("full.wav"));  // without the name of the unfinished file
}

TEST_F(SoundExportTest, aSavedSoundIsReadAndWhyNotIsTold) {
    Samples read;
    EXPECT_EQ("", SoundExport::read(folders.path("rec_00003.wav"), read));
    EXPECT_EQ(sound, read);
    EXPECT_EQ("No such file or directory",
              SoundExport::read(folders.path("nothing.wav"), read).sentence());
    folders.write("letter.wav", "a letter, which is no sound at all");
    EXPECT_EQ("its format is unknown",
              SoundExport::read(folders.path("letter.wav"), read).sentence());
}

TEST_F(SoundExportTest, anErrorThatIsNotTheDisksIsNotTheReason) {
    EXPECT_TRUE(SafeFile::isOfDisk(ENOSPC));
    EXPECT_FALSE(SafeFile::isOfDisk(ENOTTY));
    EXPECT_FALSE(SafeFile::isOfDisk(0));
}

TEST_F(SoundExportTest, theNameHasTheEffectAndTheNumber) {
    EXPECT_EQ("murmelo-robot-00003.wav", SoundExport::nameOf("rec_00003.wav", "robot"));
    EXPECT_EQ("murmelo-00003.wav", SoundExport::nameOf("rec_00003.wav", ""));
}
